// Every caption of every dialog, to the letter.
#include <gmock/gmock.h>

#include <map>

#include "tests/headless/dialog_template.h"
#include "tests/support/text.h"

namespace headless {
namespace {

struct Caption {
    const char* dialog;
    const char* control;  ///< empty for the dialog's own
    const wchar_t* text;
};

/// In the order of the templates. What the program writes into controls stands in the tests of the forms.
constexpr Caption CAPTIONS[] = {
    {"IDD_ctlPPE", "", L""},
    {"IDD_ctlPPE", "IDC_lblKnowledgeBase", L"Knowledgebases"},
    {"IDD_ctlPPE", "IDC_lblKnowledgeBaseInfo",
     L"Add, edit, update and remove the indexes over your mail folders."},
    {"IDD_ctlPPE", "IDC_cmdKnowledgeBase", L"&Knowledgebase..."},
    {"IDD_ctlPPE", "IDC_lblSettings", L"Search"},
    {"IDD_ctlPPE", "IDC_lblSettingsInfo", L"Automatic search, shortcut, size and relevance of the results."},
    {"IDD_ctlPPE", "IDC_cmdSettings", L"&Settings..."},
    {"IDD_ctlPPE", "IDC_lblAttachments", L"Attachments"},
    {"IDD_ctlPPE", "IDC_lblAttachmentsInfo", L"Which attached files are indexed along with the mail."},
    {"IDD_ctlPPE", "IDC_cmdAttachments", L"&Attachments..."},
    {"IDD_ctlPPE", "IDC_lblDispMatches", L"Highlights"},
    {"IDD_ctlPPE", "IDC_lblDispMatchesInfo", L"How matching passages are marked in a message."},
    {"IDD_ctlPPE", "IDC_cmdDispMatches", L"&Highlights..."},
    {"IDD_ctlPPE", "IDC_lblWizard", L"Wizard"},
    {"IDD_ctlPPE", "IDC_lblWizardInfo", L"Sets up the first knowledgebase step by step."},
    {"IDD_ctlPPE", "IDC_cmdWizard", L"&Wizard..."},
    {"IDD_frmSettings", "", L"Settings"},
    {"IDD_frmSettings", "IDC_fraListMatching", L"List matching e-mails"},
    {"IDD_frmSettings", "IDC_chkAutoInfo", L"Aut&omatic search"},
    {"IDD_frmSettings", "IDC_optAutoInfo_0", L"Unrea&d"},
    {"IDD_frmSettings", "IDC_optAutoInfo_1", L"A&ll"},
    {"IDD_frmSettings", "IDC_lblDelay", L"Dela&y:"},
    {"IDD_frmSettings", "IDC_txtDelay", L"0"},
    {"IDD_frmSettings", "IDC_lblDelayInfo", L"0 - 60 (sec)"},
    {"IDD_frmSettings", "IDC_lblSearchShortcut", L"Short&cut:"},
    {"IDD_frmSettings", "IDC_fraResultList", L"Result list"},
    {"IDD_frmSettings", "IDC_lblEntryCount", L"Ma&ximum number of results:"},
    {"IDD_frmSettings", "IDC_txtEntryCount", L"10"},
    {"IDD_frmSettings", "IDC_lblResCountInfo", L"10 - 10000"},
    {"IDD_frmSettings", "IDC_lblMinRel", L"&Minimum relevance:"},
    {"IDD_frmSettings", "IDC_txtMinRel", L"0"},
    {"IDD_frmSettings", "IDC_lblMinRelPercent", L"0 - 100(%)"},
    {"IDD_frmSettings", "IDC_fraKnowledgebase", L"Knowledgebase"},
    {"IDD_frmSettings", "IDC_lblDefaultKB", L"Auto-Update &knowledgebase:"},
    {"IDD_frmSettings", "IDC_fraLoggingInformation", L"Logging information"},
    {"IDD_frmSettings", "IDC_chkLoggingInformation", L"&Provide logging information"},
    {"IDD_frmSettings", "IDC_cmdSendLog", L"&Send report..."},
    {"IDD_frmSettings", "IDC_cmdOk", L"OK"},
    {"IDD_frmSettings", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmAttachment", "", L"Attachments"},
    {"IDD_frmAttachment", "IDC_chkKBAdd", L"A&dd to knowledgebase"},
    {"IDD_frmAttachment", "IDC_optKBAddAll_0", L"&All attached files"},
    {"IDD_frmAttachment", "IDC_optKBAddAll_1", L"Files of maximum si&ze"},
    {"IDD_frmAttachment", "IDC_lblMaxSize", L"&Size in KB (1 - 65000):"},
    {"IDD_frmAttachment", "IDC_txtMaxSize", L"1"},
    {"IDD_frmAttachment", "IDC_chkFindAtt", L"Add file te&xt to query if automatic search is selected"},
    {"IDD_frmAttachment", "IDC_lblAvailable", L"A&vailable Extensions:"},
    {"IDD_frmAttachment", "IDC_lblSelected", L"&Selected Extensions:"},
    {"IDD_frmAttachment", "IDC_cmdOk", L"OK"},
    {"IDD_frmAttachment", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmAttachment", "IDC_sstAttachments", L"Attachments"},
    {"IDD_frmDispMatches", "", L"Highlights"},
    {"IDD_frmDispMatches", "IDC_fraPenalties", L"Highlights"},
    {"IDD_frmDispMatches", "IDC_optDisplayMatches_0", L"&Hotspots"},
    {"IDD_frmDispMatches", "IDC_optDisplayMatches_1", L"Text &Marks"},
    {"IDD_frmDispMatches", "IDC_lblHotspotColor", L"Select Color:"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_0", L"Best match"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_1", L"Level 1"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_2", L"Level 2"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_3", L"Level 3"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_4", L"Level 4"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_5", L"Level 5"},
    {"IDD_frmDispMatches", "IDC_chkKeepHighlights", L"&Keep highlights when saving or forwarding"},
    {"IDD_frmDispMatches", "IDC_cmdOk", L"OK"},
    {"IDD_frmDispMatches", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmKBConfiguration", "", L"Knowledgebases"},
    {"IDD_frmKBConfiguration", "IDC_fraKBConfiguration", L"Configuration"},
    {"IDD_frmKBConfiguration", "IDC_sftKBConfiguration", L"Knowledgebases"},
    {"IDD_frmKBConfiguration", "IDC_KB_cmdAdd", L"&Add"},
    {"IDD_frmKBConfiguration", "IDC_cmdEdit", L"&Edit"},
    {"IDD_frmKBConfiguration", "IDC_cmdRename", L"Re&name"},
    {"IDD_frmKBConfiguration", "IDC_KB_cmdRemove", L"Re&move"},
    {"IDD_frmKBConfiguration", "IDC_cmdRebuild", L"Re&build"},
    {"IDD_frmKBConfiguration", "IDC_cmdUpdate", L"&Update"},
    {"IDD_frmKBConfiguration", "IDC_cmdBaseFolder", L"&Folder..."},
    {"IDD_frmKBConfiguration", "IDC_cmdApply", L"Apply"},
    {"IDD_frmKBConfiguration", "IDC_cmdCancel", L"Close"},
    {"IDD_frmKnowledgeBase", "", L"Knowledgebase"},
    {"IDD_frmKnowledgeBase", "IDC_fraVexaBaseDir", L"Knowledgebase"},
    {"IDD_frmKnowledgeBase", "IDC_lblDrive", L"&Drive:"},
    {"IDD_frmKnowledgeBase", "IDC_lblFolder", L"&Folder:"},
    {"IDD_frmKnowledgeBase", "IDC_dirVexaBaseDir", L"Folders"},
    {"IDD_frmKnowledgeBase", "IDC_cmdNewDirectory", L"&New..."},
    {"IDD_frmKnowledgeBase", "IDC_cmdRepository", L"&Select folders..."},
    {"IDD_frmKnowledgeBase", "IDC_lblPath", L"&Chosen folder:"},
    {"IDD_frmKnowledgeBase", "IDC_cmdOk", L"OK"},
    {"IDD_frmKnowledgeBase", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmNewFolder", "", L"New folder"},
    {"IDD_frmNewFolder", "IDC_lblFolderName", L"&Name of the new folder:"},
    {"IDD_frmNewFolder", "IDC_cmdOk", L"OK"},
    {"IDD_frmNewFolder", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmSelectDefaultKB", "", L"Select auto-update knowledgebase"},
    {"IDD_frmSelectDefaultKB", "IDC_lblInfo",
     L"Please select one of the defined knowledgebases to be configured for auto-update."},
    {"IDD_frmSelectDefaultKB", "IDC_sftKnowledgebases", L"Knowledgebases"},
    {"IDD_frmSelectDefaultKB", "IDC_cmdOk", L"OK"},
    {"IDD_frmSelectDefaultKB", "IDC_cmdCancel", L"Cancel"},
    {"IDD_frmSendBugReport", "", L"Send report"},
    {"IDD_frmSendBugReport", "IDC_lblTo", L"&To:"},
    {"IDD_frmSendBugReport", "IDC_lblCc", L"&Cc:"},
    {"IDD_frmSendBugReport", "IDC_lblSubject", L"&Subject:"},
    {"IDD_frmSendBugReport", "IDC_lblFontname", L"Font:"},
    {"IDD_frmSendBugReport", "IDC_lblFontsize", L"Font size:"},
    {"IDD_frmSendBugReport", "IDC_tbrProperties", L"Formatting"},
    {"IDD_frmSendBugReport", "IDC_lblBody", L"Report:"},
    {"IDD_frmSendBugReport", "IDC_tbrBugReport", L"Sending"},
};

/// By dialog and control: only what has a caption, and each dialog.
using Captions = std::map<std::string, std::string>;

Captions captionsOfTheTemplates() {
    Captions captions;
    for (const DialogTemplate& dialog : allDialogs()) {
        captions[dialog.idName + " "] = tests::toUtf8(dialog.caption);
        for (const TemplateControl& control : dialog.controls)
            if (!control.caption.empty())
                captions[dialog.idName + " " + control.idName] = tests::toUtf8(control.caption);
    }
    return captions;
}

TEST(Captions, AreThoseOfTheTable) {
    Captions expected;
    for (const Caption& caption : CAPTIONS)
        expected[std::string(caption.dialog) + " " + caption.control] = tests::toUtf8(caption.text);
    EXPECT_THAT(captionsOfTheTemplates(), testing::UnorderedElementsAreArray(expected));
}

}  // namespace
}  // namespace headless
