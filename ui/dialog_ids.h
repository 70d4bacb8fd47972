// Identifiers that all dialogs share: the buttons that Enter and Esc press, by the system's own numbers.
#pragma once

#define IDC_cmdOk 1
#define IDC_cmdCancel 2
