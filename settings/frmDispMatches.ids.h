// Identifiers of the highlight settings dialog.
#pragma once

#define IDD_frmDispMatches 1100
#define IDC_fraPenalties 1101
#define IDC_optDisplayMatches_0 1102
#define IDC_optDisplayMatches_1 1103
#define IDC_lblHotspotColor 1104
#define IDC_lblSelHotspotColor 1105
#define IDC_lblPenalty_0 1106
#define IDC_lblPenalty_1 1107
#define IDC_lblPenalty_2 1108
#define IDC_lblPenalty_3 1109
#define IDC_lblPenalty_4 1110
#define IDC_lblPenalty_5 1111
#define IDC_Line1_0 1112
#define IDC_Line1_1 1113
#define IDC_chkKeepHighlights 1114
