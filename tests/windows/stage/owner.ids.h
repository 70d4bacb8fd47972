// Identifiers of the window that owns what a test shows by itself.
#pragma once

#define IDD_testOwner 9300
#define IDC_testOwnerButton 9301
