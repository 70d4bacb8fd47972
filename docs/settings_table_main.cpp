// settings_table: prints the table of the settings, or puts it anew into the document that is named.
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>

#include "docs/settings_table.h"

namespace {

std::string readAll(const char* path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

void renew(const char* path) {
    const std::string document = docs::withSettingsTable(readAll(path));
    std::ofstream(path, std::ios::binary) << document;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        if (count < 2)
            std::cout << docs::settingsTable();
        else
            renew(arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "settings_table: " << error.what() << '\n';
        return 1;
    }
}
