// Identifiers of the report composer.
#pragma once

#define IDD_frmSendBugReport 1700
#define IDC_tbrBugReport 1701
#define IDC_tbrProperties 1702
#define IDC_cboFontname 1703
#define IDC_cboFontsize 1704
#define IDC_lblTo 1705
#define IDC_txtTo 1706
#define IDC_lblCc 1707
#define IDC_txtCc 1708
#define IDC_lblSubject 1709
#define IDC_txtSubject 1710
#define IDC_rtfBody 1711
#define IDC_lblFontname 1712
#define IDC_lblFontsize 1713
#define IDC_lblBody 1714

// Icons of the toolbars.
#define IDI_send 1720
#define IDI_highImportance 1721
#define IDI_lowImportance 1722
#define IDI_forecolor 1723
#define IDI_bold 1724
#define IDI_italic 1725
#define IDI_underline 1726
#define IDI_leftAlign 1727
#define IDI_center 1728
#define IDI_rightAlign 1729
#define IDI_bulletIndent 1730
#define IDI_numeration 1731
#define IDI_decreaseIndent 1732
#define IDI_increaseIndent 1733
