// Identifiers of the workbench's own resources.
#pragma once

#define IDD_options 2000
#define IDC_tabs 2001
#define IDC_apply 2002

#define IDD_general 2010
#define IDD_pageArea 2020

#define IDD_failureText 2030
#define IDC_failureText 2031

#define IDM_main 2100
#define IDM_showOptions 2101
#define IDM_closeOptions 2102
#define IDM_sample 2103
#define IDM_clearList 2104
#define IDM_showSearchWindow 2105
#define IDM_exit 2106

#define IDM_running 2110
#define IDM_searching 2111
#define IDM_processing 2112
#define IDM_autoUpdate 2113
#define IDM_finishNow 2114
#define IDM_finishesByState 2115
#define IDM_keepsList 2116
#define IDM_editNoChange 2117

#define IDM_workTime0 2120
#define IDM_workTime1 2121
#define IDM_workTime2 2122
#define IDM_workTime3 2123

// The menu "World".
#define IDM_searchingTime0 2170
#define IDM_searchingTime1 2171
#define IDM_searchingTime2 2172
#define IDM_baseFolderTime0 2180
#define IDM_baseFolderTime1 2181
#define IDM_baseFolderTime2 2182
#define IDM_hungSearchWindow 2190
#define IDM_eventFromThread 2191
#define IDM_pumps 2192

// One entry for each operation, in the order of the program's table.
#define IDM_failFirst 2130
#define IDM_failLast 2149
#define IDM_failureText 2150

#define IDM_wizardOnByKey 2160
#define IDM_wizardOffByKey 2161
#define IDM_wizardOnByPointer 2162
#define IDM_wizardOffByPointer 2163
