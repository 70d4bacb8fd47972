#include "tests/headless/dialog_template.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "tests/support/source_folder.h"
#include "tests/support/text.h"

namespace headless {
namespace {

namespace fs = std::filesystem;

// --- Tokens -----------------------------------------------------------------------------------------------

struct Token {
    enum class Kind { word, number, text, sign, end } kind = Kind::end;
    std::string text;
    int line = 0;
};

/// What stands between quotation marks: a doubled one stands for one; backslash escapes are the ones that the
/// templates use.
std::string unescaped(const std::string& quoted) {
    std::string content;
    for (auto at = quoted.begin(); at != quoted.end(); ++at) {
        const bool escape = *at == '\\';
        if (escape || *at == '"') ++at;
        content += escape && *at == 'n' ? '\n' : escape && *at == 't' ? '\t' : *at;
    }
    return content;
}

/// The words, numbers, texts and signs of a script in their order, its end behind them.
std::vector<Token> tokensOf(const std::string& script) {
    enum Group { BLANK = 1, QUOTED, WORD };
    const std::string blank = R"(\s+|//[^\n]*|/\*[\s\S]*?\*/)";
    const std::string quoted = R"re("((?:[^"\\]|\\[\s\S]|"")*)")re";
    static const std::regex pieces("(" + blank + ")|" + quoted + R"(|(\w+)|[\s\S])");
    std::vector<Token> tokens;
    int line = 1;
    for (std::sregex_iterator piece(script.begin(), script.end(), pieces), end; piece != end; ++piece) {
        const std::string text = piece->str();
        if ((*piece)[QUOTED].matched)
            tokens.push_back({Token::Kind::text, unescaped((*piece)[QUOTED]), line});
        else if (text == "\"")
            throw std::runtime_error("line " + std::to_string(line) + ": a text without end");
        else if ((*piece)[WORD].matched)
            tokens.push_back({std::isdigit(static_cast<unsigned char>(text[0])) != 0 ? Token::Kind::number
                                                                                     : Token::Kind::word,
                              text, line});
        else if (!(*piece)[BLANK].matched)
            tokens.push_back({Token::Kind::sign, text, line});
        line += static_cast<int>(std::ranges::count(text, '\n'));
    }
    tokens.push_back({Token::Kind::end, "", line});
    return tokens;
}

// --- Statements -------------------------------------------------------------------------------------------

/// What a control statement stands for. `captioned` statements begin with a text (for an icon: its name).
struct Statement {
    const char* name;
    const char* windowClass;
    std::set<std::string> styles;
    bool captioned;
};

const Statement* findStatement(const std::string& name) {
    static const std::vector<Statement> statements = {
        {"PUSHBUTTON", "Button", {"BS_PUSHBUTTON", "WS_TABSTOP"}, true},
        {"DEFPUSHBUTTON", "Button", {"BS_DEFPUSHBUTTON", "WS_TABSTOP"}, true},
        {"AUTORADIOBUTTON", "Button", {"BS_AUTORADIOBUTTON", "WS_TABSTOP"}, true},
        {"AUTOCHECKBOX", "Button", {"BS_AUTOCHECKBOX", "WS_TABSTOP"}, true},
        {"GROUPBOX", "Button", {"BS_GROUPBOX"}, true},
        {"LTEXT", "Static", {"SS_LEFT", "WS_GROUP"}, true},
        {"RTEXT", "Static", {"SS_RIGHT", "WS_GROUP"}, true},
        {"CTEXT", "Static", {"SS_CENTER", "WS_GROUP"}, true},
        {"ICON", "Static", {"SS_ICON"}, true},
        {"EDITTEXT", "Edit", {"WS_BORDER", "WS_TABSTOP"}, false},
        {"COMBOBOX", "ComboBox", {"WS_TABSTOP"}, false},
        {"LISTBOX", "ListBox", {"LBS_NOTIFY", "WS_BORDER"}, false},
    };
    const auto found = std::ranges::find(statements, name, &Statement::name);
    return found == statements.end() ? nullptr : &*found;
}

class Parser {
public:
    Parser(std::string sourceFolder, std::string file)
        : folder_(std::move(sourceFolder)), file_(std::move(file)) {
        tokens_ = tokensOf(tests::contentOf(folder_ + "/" + file_));
    }

    std::vector<DialogTemplate> parse() {
        std::vector<DialogTemplate> dialogs;
        while (peek().kind != Token::Kind::end) {
            if (takeSign("#"))
                parseInclude();
            else
                parseResource(dialogs);
        }
        return dialogs;
    }

private:
    void parseInclude() {
        if (takeWord() != "include") fail("include is missing");
        if (takeSign("<")) {  // a header of the system: style names only
            while (!takeSign(">")) take();
            return;
        }
        const std::string header = takeText();
        for (const auto& [name, number] : readIdentifiers(folder_ + "/" + header))
            identifiers_[name] = number;
    }

    void parseResource(std::vector<DialogTemplate>& dialogs) {
        const Token name = take();
        const std::string type = takeWord();
        if (type == "DIALOGEX") {
            dialogs.push_back(parseDialog(name));
        } else if (type == "ICON" || type == "BITMAP" || type == "RCDATA") {
            takeText();  // a picture's file
        } else {
            fail("unknown resource type " + type);
        }
    }

    DialogTemplate parseDialog(const Token& name) {
        DialogTemplate dialog;
        dialog.file = file_;
        dialog.idName = name.text;
        dialog.id = numberOf(name);
        const ui::Rect place = takeRect();
        dialog.units = {place.width, place.height};
        while (!takeWordIf("BEGIN")) parseDialogOption(dialog);
        while (!takeWordIf("END")) dialog.controls.push_back(parseControl());
        return dialog;
    }

    void parseDialogOption(DialogTemplate& dialog) {
        const std::string option = takeWord();
        if (option == "STYLE" || option == "EXSTYLE") {
            takeStyles(dialog.styles);
        } else if (option == "CAPTION") {
            dialog.caption = tests::fromUtf8(takeText());
        } else if (option == "FONT") {
            take();
            while (takeSign(",")) take();
        } else {
            fail("unknown dialog option " + option);
        }
    }

    TemplateControl parseControl() {
        TemplateControl control;
        const std::string name = takeWord();
        const Statement* statement = findStatement(name);
        if (statement == nullptr && name != "CONTROL") fail("unknown control statement " + name);
        if (statement == nullptr || statement->captioned) {
            const Token caption = take();
            if (caption.kind == Token::Kind::text) control.caption = tests::fromUtf8(caption.text);
            takeComma();
        }
        const Token id = takeSign("-") ? Token{Token::Kind::number, "-" + take().text, peek().line} : take();
        control.idName = id.text;
        control.id = numberOf(id);
        takeComma();
        if (statement != nullptr) {
            control.windowClass = statement->windowClass;
            control.styles = statement->styles;
        } else {
            control.windowClass = takeText();
            takeComma();
            takeStyles(control.styles);
            takeComma();
        }
        control.units = takeRect();
        while (takeSign(",")) takeStyles(control.styles);
        control.styles.insert("WS_VISIBLE");
        for (const std::string& taken : std::exchange(negated_, {})) control.styles.erase(taken);
        return control;
    }

    void takeStyles(std::set<std::string>& styles) {
        do {
            const bool negated = takeWordIf("NOT");
            const Token style = take();
            if (style.kind != Token::Kind::word && style.kind != Token::Kind::number)
                fail("a style is missing");
            if (negated)
                negated_.insert(style.text);
            else
                styles.insert(style.text);
        } while (takeSign("|"));
    }

    ui::Rect takeRect() {
        ui::Rect rect;
        for (int* part : {&rect.left, &rect.top, &rect.width, &rect.height}) {
            if (part != &rect.left) takeComma();
            *part = numberOf(take());
        }
        return rect;
    }

    [[nodiscard]] int numberOf(const Token& token) {
        if (token.kind == Token::Kind::number) return std::stoi(token.text, nullptr, 0);
        const auto found = identifiers_.find(token.text);
        if (found == identifiers_.end()) fail("unknown identifier " + token.text);
        return found->second;
    }

    [[nodiscard]] const Token& peek() const { return tokens_[position_]; }
    Token take() { return peek().kind == Token::Kind::end ? peek() : tokens_[position_++]; }
    bool takeSign(const std::string& sign) {
        if (peek().kind != Token::Kind::sign || peek().text != sign) return false;
        take();
        return true;
    }
    void takeComma() {
        if (!takeSign(",")) fail("a comma is missing before " + peek().text);
    }
    bool takeWordIf(const std::string& word) {
        if (peek().kind == Token::Kind::end) fail("the script ends too early");
        if (peek().kind != Token::Kind::word || peek().text != word) return false;
        take();
        return true;
    }
    std::string takeWord() {
        if (peek().kind != Token::Kind::word) fail("a word is missing before " + peek().text);
        return take().text;
    }
    std::string takeText() {
        if (peek().kind != Token::Kind::text) fail("a text is missing before " + peek().text);
        return take().text;
    }
    [[noreturn]] void fail(const std::string& what) const {
        throw std::runtime_error(file_ + ":" + std::to_string(peek().line) + ": " + what);
    }

    std::string folder_;
    std::string file_;
    std::vector<Token> tokens_;
    std::size_t position_ = 0;
    std::map<std::string, int> identifiers_{{"IDC_STATIC", -1}};
    std::set<std::string> negated_;
};

/// The resource scripts of the product's dialogs, below the source folder.
std::vector<std::string> dialogScripts() {
    std::vector<std::string> scripts;
    for (const std::string room : {"page", "settings", "kb", "report"})
        for (const auto& entry : fs::directory_iterator(tests::sourceFolder() + "/" + room))
            if (entry.path().extension() == ".rc")
                scripts.push_back(room + "/" + entry.path().filename().string());
    std::ranges::sort(scripts);
    return scripts;
}

/// The system's own rounding of dialog units.
int scaled(int units, int base, int divisor) { return (units * base + divisor / 2) / divisor; }

}  // namespace

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

std::vector<DialogTemplate> readDialogs(const std::string& sourceFolder, const std::string& file) {
    return Parser(sourceFolder, file).parse();
}

std::vector<std::pair<std::string, int>> readIdentifiers(const std::string& path) {
    std::vector<std::pair<std::string, int>> identifiers;
    std::istringstream lines(tests::contentOf(path));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string directive, name, number;
        if (words >> directive >> name >> number && directive == "#define")
            identifiers.emplace_back(name, std::stoi(number, nullptr, 0));
    }
    return identifiers;
}

const std::vector<DialogTemplate>& allDialogs() {
    static const std::vector<DialogTemplate> dialogs = [] {
        std::vector<DialogTemplate> all;
        for (const std::string& script : dialogScripts())
            std::ranges::move(readDialogs(tests::sourceFolder(), script), std::back_inserter(all));
        return all;
    }();
    return dialogs;
}

const DialogTemplate& dialogTemplate(int id) {
    const auto found = std::ranges::find(allDialogs(), id, &DialogTemplate::id);
    if (found == allDialogs().end()) throw std::logic_error("no dialog template " + std::to_string(id));
    return *found;
}

ui::Rect toPixels(const ui::Rect& units) {
    constexpr int BASE_WIDTH = 6;  // the average character of the dialogs' font
    constexpr int BASE_HEIGHT = 13;
    return {scaled(units.left, BASE_WIDTH, 4), scaled(units.top, BASE_HEIGHT, 8),
            scaled(units.width, BASE_WIDTH, 4), scaled(units.height, BASE_HEIGHT, 8)};
}

}  // namespace headless
