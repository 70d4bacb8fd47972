// Icons of the knowledgebase dialogs' lists.
#pragma once

#define IDI_kb 1490
#define IDI_folderClosed 1491
#define IDI_folderOpen 1492
