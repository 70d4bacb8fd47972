// Identifiers of the question for a new folder's name.
#pragma once

#define IDD_frmNewFolder 1800
#define IDC_lblFolderName 1801
#define IDC_txtFolderName 1802
