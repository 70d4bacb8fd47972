// Identifiers of the page's template and controls.
#pragma once

#define IDD_ctlPPE 1000
#define IDC_cmdMsg 1001

#define IDC_lneKnowledgeBase 1010
#define IDC_lblKnowledgeBase 1011
#define IDC_lblKnowledgeBaseInfo 1012
#define IDC_picKnowledgeBase 1013
#define IDC_cmdKnowledgeBase 1014

#define IDC_lneSettings 1020
#define IDC_lblSettings 1021
#define IDC_lblSettingsInfo 1022
#define IDC_picSettings 1023
#define IDC_cmdSettings 1024

#define IDC_lneAttachments 1030
#define IDC_lblAttachments 1031
#define IDC_lblAttachmentsInfo 1032
#define IDC_picAttachments 1033
#define IDC_cmdAttachments 1034

#define IDC_lneDispMatches 1040
#define IDC_lblDispMatches 1041
#define IDC_lblDispMatchesInfo 1042
#define IDC_picDispMatches 1043
#define IDC_cmdDispMatches 1044

#define IDC_lneWizard 1050
#define IDC_lblWizard 1051
#define IDC_lblWizardInfo 1052
#define IDC_picWizard 1053
#define IDC_cmdWizard 1054

#define IDI_knowledgebase 1090
#define IDI_settings 1091
#define IDI_attachments 1092
#define IDI_highlights 1093
#define IDI_wizard 1094
