// Identifiers of the search settings dialog.
#pragma once

#define IDD_frmSettings 1200
#define IDC_fraListMatching 1201
#define IDC_chkAutoInfo 1202
#define IDC_optAutoInfo_0 1203
#define IDC_optAutoInfo_1 1204
#define IDC_lblDelay 1205
#define IDC_txtDelay 1206
#define IDC_updDelay 1207
#define IDC_lblDelayInfo 1208
#define IDC_lblSearchShortcut 1209
#define IDC_cboSearchShortcut 1210
#define IDC_fraResultList 1211
#define IDC_lblEntryCount 1212
#define IDC_txtEntryCount 1213
#define IDC_updEntryCount 1214
#define IDC_lblResCountInfo 1215
#define IDC_lblMinRel 1216
#define IDC_txtMinRel 1217
#define IDC_updMinRel 1218
#define IDC_lblMinRelPercent 1219
#define IDC_fraKnowledgebase 1220
#define IDC_lblDefaultKB 1221
#define IDC_cboDefaultKB 1222
#define IDC_fraLoggingInformation 1223
#define IDC_chkLoggingInformation 1224
#define IDC_cmdSendLog 1225
