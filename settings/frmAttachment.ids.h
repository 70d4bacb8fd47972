// Identifiers of the attachment settings dialog. A picture button shows the icon that bears its identifier.
#pragma once

#define IDD_frmAttachment 1300
#define IDC_sstAttachments 1301
#define IDC_fraAttKB 1302
#define IDC_chkKBAdd 1303
#define IDC_optKBAddAll_0 1304
#define IDC_optKBAddAll_1 1305
#define IDC_lblMaxSize 1306
#define IDC_txtMaxSize 1307
#define IDC_updMaxSize 1308
#define IDC_chkFindAtt 1309
#define IDC_fraExtensions 1310
#define IDC_lblAvailable 1311
#define IDC_lstAvailable 1312
#define IDC_cmdAdd 1313
#define IDC_cmdRemove 1314
#define IDC_lblSelected 1315
#define IDC_lstSelected 1316
