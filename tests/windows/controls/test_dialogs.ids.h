// Identifiers of the dialogs that exist for tests alone.
#pragma once

#define IDD_testDialog 9000
#define IDC_testLabel 9001
#define IDC_testText 9002
#define IDC_testNotes 9003
#define IDC_testCombo 9004
#define IDC_testCheck 9005
#define IDC_testOption_0 9006
#define IDC_testOption_1 9007
#define IDC_testOption_2 9008
#define IDC_testOtherOption_0 9009
#define IDC_testOtherOption_1 9010
#define IDC_testPictureButton 9011
#define IDC_testSwatch 9012
#define IDC_testBareSwatch 9013
#define IDC_testButton 9014
#define IDC_testPicture 9015

#define IDD_testPage 9100
#define IDC_testPageButton 9101
#define IDC_testHiddenButton 9102
#define IDC_testPageText 9103

#define IDD_testBare 9200
#define IDC_testBareButton 9201
