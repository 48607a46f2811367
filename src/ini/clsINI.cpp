#include "clsINI.h"

#include "Failure.h"
#include "File.h"
#include "LineReader.h"
#include "NumberText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace morvane {

namespace {

std::size_t CheckedIndex(std::int32_t index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw Failure(OutOfRangeError, "clsINI", "Subscript out of range");
    return static_cast<std::size_t>(index);
}

} // namespace

clsINI::clsINI(ShowMessage showMessage) : Show(std::move(showMessage)) {}

std::int32_t clsINI::NumberOfSections() const { return static_cast<std::int32_t>(Sections.size()); }

std::int32_t clsINI::NumberOfKeys(std::string_view sectionName) const {
    const IniSection* section = SectionOrNull(sectionName);
    return section == nullptr ? 0 : static_cast<std::int32_t>(section->Count());
}

std::string clsINI::SectionName(std::int32_t sectionNum) const {
    return Sections[CheckedIndex(sectionNum, Sections.size())].Name;
}

std::string clsINI::KeyName(std::string_view sectionName, std::int32_t keyNum) const {
    const IniSection* section = SectionOrNull(sectionName);
    return section == nullptr ? std::string() : section->Key(CheckedIndex(keyNum, section->Count())).Name;
}

void clsINI::KeyName(std::string_view sectionName, std::int32_t keyNum, std::string newName) {
    IniSection* section = SectionOrNull(sectionName);
    if (section != nullptr) section->Rename(CheckedIndex(keyNum, section->Count()), std::move(newName));
}

void clsINI::SaveFile() const {
    if (!SavingAllowed) return;
    try {
        const std::string text = Text();
        ReplaceContent(LoadedName, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
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
        for (std::size_t i = 0; i < section.Count(); ++i) {
            append(section.Key(i).Name);
            text += '=';
            append(section.Key(i).Value);
            text += "\r\n";
        }
    }
    return text;
}

void clsINI::LoadINI(std::string fileName) {
    Sections.clear();
    LoadedName = std::move(fileName);
    if (LoadedName.empty()) return;
    const std::optional<File> file = File::OpenForReading(LoadedName);
    if (!file) return;
    LineReader lines(*file);
    while (std::optional<std::string> line = lines.Next()) AddLine(std::move(*line));
}

void clsINI::AddLine(std::string line) {
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') {
        line.pop_back(); // whatever it is
        if (!line.empty()) line.erase(0, 1);
        AddSection(std::move(line));
        return;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos || Sections.empty()) return;
    // The longer of name and value keeps the memory of the line.
    if (equals > line.size() / 2) {
        std::string value = line.substr(equals + 1);
        line.resize(equals);
        Sections.back().AddKey(std::move(line), std::move(value));
    } else {
        std::string name = line.substr(0, equals);
        line.erase(0, equals + 1);
        Sections.back().AddKey(std::move(name), std::move(line));
    }
}

void clsINI::DeleteSection(std::string_view sectionName) {
    const std::int32_t section = FindSection(sectionName);
    if (section >= 0) Sections.erase(Sections.begin() + section);
    SaveFile();
}

void clsINI::DeleteKey(std::string_view sectionName, std::string_view keyName) {
    if (IniSection* section = SectionOrNull(sectionName)) {
        const std::int32_t key = section->FindKey(keyName);
        if (key >= 0) section->DeleteKey(static_cast<std::size_t>(key));
    }
    SaveFile();
}

std::string clsINI::ReadString(std::string_view sectionName, std::string_view keyName,
                               const AnyValue& defaultValue) const {
    const std::string* value = FindValue(sectionName, keyName);
    return value == nullptr ? defaultValue.ToText() : *value;
}

std::int32_t clsINI::ReadLong(std::string_view sectionName, std::string_view keyName,
                              const AnyValue& defaultValue) const {
    const std::int32_t defaultNumber = defaultValue.ToLong(); // fails even where it is not needed
    const std::string* value = FindValue(sectionName, keyName);
    if (value == nullptr) return defaultNumber;
    std::string text;
    std::copy_if(value->begin(), value->end(), std::back_inserter(text),
                 [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
    const NumberText number = ScanNumber(text);
    if (number.Length == 0) return 0;
    if (!number.Value) throw Failure(OverflowError, "clsINI", "Overflow");
    return *number.Value;
}

void clsINI::WriteValue(std::string_view sectionName, std::string_view keyName, std::string value) {
    std::int32_t found = FindSection(sectionName);
    if (found < 0) found = AddSection(std::string(sectionName));
    IniSection& section = Sections[static_cast<std::size_t>(found)];
    const std::int32_t key = section.FindKey(keyName);
    if (key >= 0)
        section.SetValue(static_cast<std::size_t>(key), std::move(value));
    else
        section.AddKey(std::string(keyName), std::move(value));
    SaveFile();
}

const std::string* clsINI::FindValue(std::string_view sectionName, std::string_view keyName) const {
    const IniSection* section = SectionOrNull(sectionName);
    if (section == nullptr) return nullptr;
    const std::int32_t key = section->FindKey(keyName);
    return key < 0 ? nullptr : &section->Key(static_cast<std::size_t>(key)).Value;
}

std::int32_t clsINI::FindSection(std::string_view sectionName) const {
    const auto found = std::find_if(Sections.begin(), Sections.end(),
                                    [=](const IniSection& section) { return section.Name == sectionName; });
    return found == Sections.end() ? -1 : static_cast<std::int32_t>(found - Sections.begin());
}

const IniSection* clsINI::SectionOrNull(std::string_view sectionName) const {
    const std::int32_t found = FindSection(sectionName);
    return found < 0 ? nullptr : &Sections[static_cast<std::size_t>(found)];
}

IniSection* clsINI::SectionOrNull(std::string_view sectionName) {
    const std::int32_t found = FindSection(sectionName);
    return found < 0 ? nullptr : &Sections[static_cast<std::size_t>(found)];
}

/// Appends a section, also when there is one of that name; its index.
std::int32_t clsINI::AddSection(std::string sectionName) {
    Sections.emplace_back(std::move(sectionName));
    return static_cast<std::int32_t>(Sections.size() - 1);
}

} // namespace morvane
