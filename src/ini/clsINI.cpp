#include "clsINI.h"

#include "Failure.h"
#include "File.h"
#include "NumberText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace morvane {

namespace {

/// The entry of an index, which must be in range; -1 stands for none and is not.
template <typename List>
auto& At(List& list, std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size())
        throw Failure(OutOfRangeError, "clsINI", "Subscript out of range");
    return list[static_cast<std::size_t>(index)];
}

std::int32_t FindName(const auto& list, std::string_view name) {
    const auto found = std::ranges::find_if(list, [=](const auto& entry) { return entry.Name == name; });
    return found == list.end() ? -1 : static_cast<std::int32_t>(found - list.begin());
}

/// True when a new key must stand before another one. One whose name is a number stands before greater
/// numbers and all other names, any other before names that are greater byte by byte.
bool StandsBefore(const IniKey& key, const IniKey& other) {
    if (!key.Number) return key.Name < other.Name;
    return !other.Number || *key.Number < *other.Number;
}

/// Appends the content of a file to the text. After a failure the text holds what was read before it.
void AppendContent(const File& file, std::string& text) {
    std::array<std::uint8_t, 65536> part{};
    for (std::int64_t position = 0;; position += part.size()) {
        const std::size_t count = file.ReadAt(position, part);
        text.append(reinterpret_cast<const char*>(part.data()), count);
        if (count < part.size()) return;
    }
}

} // namespace

clsINI::clsINI(ShowMessage showMessage) : Show(std::move(showMessage)) {}

std::int32_t clsINI::NumberOfKeys(std::string_view sectionName) const {
    const std::int32_t section = FindSection(sectionName);
    return section < 0 ? 0 : static_cast<std::int32_t>(At(Sections, section).Keys.size());
}

std::string clsINI::SectionName(std::int32_t sectionNum) const { return At(Sections, sectionNum).Name; }

std::string clsINI::KeyName(std::string_view sectionName, std::int32_t keyNum) const {
    const std::int32_t section = FindSection(sectionName);
    return section < 0 ? std::string() : At(At(Sections, section).Keys, keyNum).Name;
}

void clsINI::KeyName(std::string_view sectionName, std::int32_t keyNum, std::string newName) {
    const std::int32_t section = FindSection(sectionName);
    if (section < 0) return;
    IniKey& key = At(At(Sections, section).Keys, keyNum);
    key.Number = WholeNumber(newName).Value;
    key.Name = std::move(newName);
}

void clsINI::SaveFile() const {
    if (!SavingAllowed) return;
    try {
        const std::string text = Text();
        WriteInPlace(LoadedName, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    } catch (const std::exception& failure) {
        if (Show) Show("Could not save INI file.", std::string("clsINI.SaveFile: ") + failure.what());
    }
}

/// The document as its file holds it. Fails when a name or a value would end its line too early.
std::string clsINI::Text() const {
    std::string text;
    const auto append = [&](const std::string& part) {
        if (part.find('\r') != std::string::npos)
            throw Failure(WrongTypeError, "clsINI", LoadedName + ": a name or value holds a line end");
        text += part;
    };
    for (const IniSection& section : Sections) {
        if (!text.empty()) text += "\r\n";
        text += '[';
        append(section.Name);
        text += "]\r\n";
        for (const IniKey& key : section.Keys) {
            append(key.Name);
            text += '=';
            append(key.Value);
            text += "\r\n";
        }
    }
    return text;
}

void clsINI::LoadINI(std::string fileName) {
    Sections.clear();
    LoadedName = std::move(fileName);
    if (LoadedName.empty()) return;
    const std::optional<File> file = File::OpenNormal(LoadedName);
    if (!file) return;
    std::string text;
    try {
        AppendContent(*file, text);
    } catch (const Failure&) {
        AddLines(text.substr(0, text.rfind('\r') + 1)); // whole lines alone
        throw;
    }
    AddLines(text);
}

/// A line ends at CR or CR LF or with the text; any other LF is a character of its line.
void clsINI::AddLines(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\r'), text.size());
        AddLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (text.starts_with('\n')) text.remove_prefix(1);
    }
}

void clsINI::AddLine(std::string_view line) {
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') {
        line.remove_suffix(1); // whatever it is
        AddSection(std::string(line.substr(std::min<std::size_t>(line.size(), 1))));
        return;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || Sections.empty()) return;
    AddKey(NumberOfSections() - 1, std::string(line.substr(0, equals)), std::string(line.substr(equals + 1)));
}

void clsINI::DeleteSection(std::string_view sectionName) {
    const std::int32_t section = FindSection(sectionName);
    if (section >= 0) Sections.erase(Sections.begin() + section);
    SaveFile();
}

void clsINI::DeleteKey(std::string_view sectionName, std::string_view keyName) {
    const std::int32_t section = FindSection(sectionName);
    const std::int32_t key = FindKey(section, keyName);
    if (key >= 0) {
        std::vector<IniKey>& keys = At(Sections, section).Keys;
        keys.erase(keys.begin() + key);
    }
    SaveFile();
}

std::string clsINI::ReadString(std::string_view sectionName, std::string_view keyName,
                               const AnyValue& defaultValue) const {
    const std::int32_t section = FindSection(sectionName);
    const std::int32_t key = FindKey(section, keyName);
    return key < 0 ? defaultValue.ToText() : At(At(Sections, section).Keys, key).Value;
}

std::int32_t clsINI::ReadLong(std::string_view sectionName, std::string_view keyName,
                              const AnyValue& defaultValue) const {
    std::string text = ReadString(sectionName, keyName, defaultValue.ToLong());
    std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    const NumberText number = ScanNumber(text);
    if (number.Length == 0) return 0;
    if (!number.Value) throw Failure(OverflowError, "clsINI", "Overflow");
    return *number.Value;
}

void clsINI::WriteValue(std::string_view sectionName, std::string_view keyName, std::string value) {
    std::int32_t section = FindSection(sectionName);
    if (section < 0) section = AddSection(std::string(sectionName));
    const std::int32_t key = FindKey(section, keyName);
    if (key >= 0)
        At(At(Sections, section).Keys, key).Value = std::move(value);
    else
        AddKey(section, std::string(keyName), std::move(value));
    SaveFile();
}

std::int32_t clsINI::FindSection(std::string_view sectionName) const {
    return FindName(Sections, sectionName);
}

/// The first key of that name in a section; none when there is no section.
std::int32_t clsINI::FindKey(std::int32_t section, std::string_view keyName) const {
    return section < 0 ? -1 : FindName(At(Sections, section).Keys, keyName);
}

/// Appends a section, also when there is one of that name. Returns its index.
std::int32_t clsINI::AddSection(std::string sectionName) {
    Sections.push_back({std::move(sectionName), {}});
    return NumberOfSections() - 1;
}

/// Inserts a key at its sorted place, also when there is one of that name. Returns its index.
std::int32_t clsINI::AddKey(std::int32_t section, std::string keyName, std::string value) {
    std::vector<IniKey>& keys = At(Sections, section).Keys;
    const std::optional<std::int32_t> number = WholeNumber(keyName).Value;
    IniKey added{std::move(keyName), std::move(value), number};
    const auto place =
        std::ranges::find_if(keys, [&](const IniKey& key) { return StandsBefore(added, key); });
    return static_cast<std::int32_t>(keys.insert(place, std::move(added)) - keys.begin());
}

} // namespace morvane
