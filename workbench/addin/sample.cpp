#include "workbench/addin/sample.h"

#include "workbench/addin/contract.h"
#include "workbench/addin/knowledgebases.h"
#include "workbench/addin/store.h"

namespace workbench {
namespace {

constexpr const wchar_t* PROFILE = L"Default";
constexpr const wchar_t* BASE_FOLDER = L"C:\\Quillmark";

struct Sample {
    const wchar_t* name;
    double lastUpdate;  ///< date serial; -1 is never
    LONG size;
    LONG documents;
};

constexpr Sample SAMPLES[] = {
    {L"default", 45980.354, 4'812'331, 3870},
    {L"Projects 2025", 46012.729, 18'350'080, 14'201},
    {L"Contracts", 45740.5, 912'384, 611},
    {L"Reisekosten Übersicht", 45655.0, 71'500, 48},
    {L"Newsletters", -1, -1, 0},
};

void fillKnowledgebases() {
    Knowledgebases knowledgebases;
    for (const Sample& sample : SAMPLES) {
        knowledgebases.add(sample.name);
        knowledgebases.setState(sample.name, {serialText(sample.lastUpdate), sample.size, sample.documents});
    }
}

}  // namespace

void fillWithSample() {
    store::removeKey(ROOT_KEY);
    CreateDirectoryW(BASE_FOLDER, nullptr);
    store::writeText(ROOT_KEY, value::CurrentProfile, PROFILE);
    store::writeNumber(ROOT_KEY, value::LoggingInformation, 1);
    store::writeText(ROOT_KEY, value::SendTo, L"support@example.org");
    const std::wstring profile = store::profileKey();
    store::writeText(profile, value::LogPath, std::wstring(BASE_FOLDER) + L"\\Log\\");
    store::writeText(profile, value::VexaBaseDir, BASE_FOLDER);
    store::writeText(profile, value::DefaultProject, SAMPLES[0].name);
    store::writeText(profile, value::AvailableExtensions,
                     L"csv;doc;docx;eml;htm;html;msg;odp;ods;odt;pdf;ppt;pptx;rtf;txt;xls;xlsx;xml;");
    store::writeText(profile, value::SelectedExtensions, L"doc;docx;pdf;txt;");
    fillKnowledgebases();
}

}  // namespace workbench
