// Identifiers of the chooser of the base folder.
#pragma once

#define IDD_frmKnowledgeBase 1500
#define IDC_fraVexaBaseDir 1501
#define IDC_drvVexaBaseDir 1502
#define IDC_dirVexaBaseDir 1503
#define IDC_cmdNewDirectory 1504
#define IDC_cmdRepository 1505
#define IDC_lblDrive 1506
#define IDC_lblFolder 1507
#define IDC_lblPath 1508
#define IDC_txtPath 1509
