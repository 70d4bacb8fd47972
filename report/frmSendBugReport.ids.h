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

// Icons of the toolbars, as they look enabled and disabled.
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
#define IDI_sendDisabled 1740
#define IDI_highImportanceDisabled 1741
#define IDI_lowImportanceDisabled 1742
#define IDI_forecolorDisabled 1743
#define IDI_boldDisabled 1744
#define IDI_italicDisabled 1745
#define IDI_underlineDisabled 1746
#define IDI_leftAlignDisabled 1747
#define IDI_centerDisabled 1748
#define IDI_rightAlignDisabled 1749
#define IDI_bulletIndentDisabled 1750
#define IDI_numerationDisabled 1751
#define IDI_decreaseIndentDisabled 1752
#define IDI_increaseIndentDisabled 1753
