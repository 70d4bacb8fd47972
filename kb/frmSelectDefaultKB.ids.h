// Identifiers of the chooser of the auto-update knowledgebase.
#pragma once

#define IDD_frmSelectDefaultKB 1600
#define IDC_lblInfo 1601
#define IDC_sftKnowledgebases 1602
#define IDC_picKB 1603
