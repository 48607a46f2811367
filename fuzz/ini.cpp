#include "File.h"
#include "NumberText.h"
#include "clsINI.h"
#include "modMapSymbols.h"

#include <filesystem>

using namespace morvane;

/// The input is a document, and a symbol file. What must not be ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WriteByteArray("Episode1.tsd", {data, size}, true);
    LoadMapSymbols(".", 1);
    for (const auto& plane : MapSymbols)
        for (const MapSymbol& symbol : plane)
            if (symbol.Tile.Pixels().size() != 49 || symbol.Pattern.size() < 49) std::abort();
    clsINI document;
    document.LoadINI("Episode1.tsd");
    for (std::int32_t s = 0; s < document.NumberOfSections(); ++s) {
        const std::string section = document.SectionName(s);
        for (std::int32_t k = 0; k < document.NumberOfKeys(section); ++k) {
            const std::string value = document.ReadString(section, document.KeyName(section, k), "\r");
            if (value == "\r" || ScanNumber(value).Length > value.size()) std::abort();
        }
    }
    // A saved document loads to the same one, but for the order of keys, and is saved as long as it was.
    document.SaveFile();
    const std::uintmax_t length = std::filesystem::file_size("Episode1.tsd");
    document.LoadINI("Episode1.tsd");
    document.SaveFile();
    if (std::filesystem::file_size("Episode1.tsd") != length) std::abort();
    return 0;
}
