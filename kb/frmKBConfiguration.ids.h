// Identifiers of the knowledgebase dialog. Add and Remove bear its prefix: another dialog has buttons of
// these names.
#pragma once

#define IDD_frmKBConfiguration 1400
#define IDC_fraKBConfiguration 1401
#define IDC_sftKBConfiguration 1402
#define IDC_KB_cmdAdd 1403
#define IDC_cmdEdit 1404
#define IDC_cmdRename 1405
#define IDC_KB_cmdRemove 1406
#define IDC_cmdRebuild 1407
#define IDC_cmdUpdate 1408
#define IDC_cmdBaseFolder 1409
#define IDC_cmdApply 1410
#define IDC_lblDebugInfo 1411
#define IDC_lblStatus 1412
