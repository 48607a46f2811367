#include "Failure.h"
#include "Fuzz.h"
#include "NumberText.h"
#include "clsINI.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>

// The input is a document. It is held a second time in a plain model that follows the rules word by word, and
// both must agree whatever is asked, changed and saved.

namespace morvane::fuzz {

namespace {

using Key = std::pair<std::string, std::string>;
using Section = std::pair<std::string, std::vector<Key>>;

struct Model {
    std::vector<Section> Sections;

    Section* Find(const std::string& name) {
        const auto found = std::ranges::find(Sections, name, &Section::first);
        return found == Sections.end() ? nullptr : &*found;
    }
    static std::vector<Key>::iterator Find(Section& section, const std::string& name) {
        return std::ranges::find(section.second, name, &Key::first);
    }
    static void Add(Section& section, Key key) {
        const auto number = WholeNumber(key.first).Value;
        const auto place = std::ranges::find_if(section.second, [&](const Key& other) {
            const auto otherNumber = WholeNumber(other.first).Value;
            return number ? !otherNumber || *number < *otherNumber : key.first < other.first;
        });
        section.second.insert(place, std::move(key));
    }
    void AddLine(const std::string& line) {
        if (line.starts_with('[')) {
            Sections.push_back({line.size() < 2 ? "" : line.substr(1, line.size() - 2), {}});
        } else if (const std::size_t equals = line.find('=');
                   equals != std::string::npos && !line.starts_with(';') && !Sections.empty()) {
            Add(Sections.back(), {line.substr(0, equals), line.substr(equals + 1)});
        }
    }
    explicit Model(const std::string& text) {
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find('\r', start), text.size());
            AddLine(text.substr(start, end - start));
            start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        }
    }
    [[nodiscard]] std::string Text() const {
        std::string text;
        for (const Section& section : Sections) {
            if (!text.empty()) text += "\r\n";
            text.append("[").append(section.first).append("]\r\n");
            for (const auto& [name, value] : section.second)
                text.append(name).append("=").append(value).append("\r\n");
        }
        return text;
    }
};

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What ReadLong gives, found with the C library; nothing when a long number is so close to a half that it
/// may have become one. Infinity stands for an overflow.
std::optional<double> ExpectedLong(std::string value) {
    std::erase_if(value, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    const bool hex = value.starts_with("&H");
    value = hex ? value.substr(2) : value;
    value.resize(
        std::min(value.size(), value.find_first_not_of(hex ? "0123456789abcdefABCDEF" : "+-.0123456789eE")));
    const long double number = std::strtold((hex ? "0x0" + value : value).c_str(), nullptr);
    if (value.size() > 16 && std::fabs(number - std::floor(number) - 0.5L) < 1e-6L) return std::nullopt;
    const long double whole = std::nearbyint(number);
    if (whole < -2147483648.0L || whole > 2147483647.0L) return HUGE_VAL;
    return static_cast<double>(whole);
}

/// The number that ReadLong gives: infinity for an overflow, nothing for a default of the wrong type.
std::optional<double> Long(const clsINI& document, const std::string& section, const std::string& key,
                           const AnyValue& defaultValue) {
    try {
        return document.ReadLong(section, key, defaultValue);
    } catch (const Failure& failure) {
        if (failure.Number == WrongTypeError) return std::nullopt;
        Check(failure.Number == OverflowError, "a number is read, too large or none");
        return HUGE_VAL;
    }
}

void CheckQueries(const clsINI& document, Section& section) {
    const std::string& name = section.first;
    const std::string absent = name + "\r"; // no name holds the end of a line
    Check(document.NumberOfKeys(name) == std::ssize(section.second), "a section has its keys");
    for (std::int32_t i = 0; const auto& [key, ignored] : section.second) {
        const std::string& value = Model::Find(section, key)->second;
        Check(document.KeyName(name, i++) == key, "keys stand in their order");
        Check(document.ReadString(name, key, "absent") == value, "the first key of a name counts");
        const std::optional<double> expected = ExpectedLong(value);
        const std::optional<double> read = Long(document, name, key, 7);
        Check(read && (!expected || *expected == *read), "a number is what the value begins with");
        const std::optional<double> ofDefault = Long(document, name, absent, value);
        Check(!ofDefault || !expected || *expected == *ofDefault,
              "a text as default is read whole or refused");
    }
    Check(document.ReadString(name, absent, "absent") == "absent" && document.ReadLong(name, absent, 7) == 7,
          "an absent key gives the default");
}

void CheckSame(const clsINI& document, Model& model) {
    Check(document.NumberOfSections() == std::ssize(model.Sections), "there are as many sections");
    for (std::int32_t i = 0; const Section& section : model.Sections) {
        Check(document.SectionName(i++) == section.first, "sections stand in their order");
        CheckQueries(document, *model.Find(section.first));
    }
}

void CheckSaved(const clsINI& document, const Model& model) {
    document.SaveFile();
    Check(Content(document.FileName()) == model.Text(), "the file holds the document");
}

/// True when every number stands before every other name byte by byte too: adding all keys anew then puts
/// each where it stands.
bool IsStable(const Section& section) {
    std::optional<std::string> greatestNumber;
    std::optional<std::string> leastOther;
    for (const auto& [name, value] : section.second) {
        if (WholeNumber(name).Value)
            greatestNumber = std::max(greatestNumber.value_or(name), name);
        else
            leastOther = std::min(leastOther.value_or(name), name);
    }
    return !greatestNumber || !leastOther || *greatestNumber < *leastOther;
}

/// The document that a saved one loads to is the same, but for the order of keys where adding them anew
/// changes it.
void CheckReload(const Model& saved, Model reloaded) {
    Check(saved.Sections.size() == reloaded.Sections.size(), "no section comes or goes");
    for (std::size_t i = 0; i < saved.Sections.size(); ++i) {
        Section before = saved.Sections[i];
        Section& after = reloaded.Sections[i];
        if (!IsStable(before)) {
            std::ranges::sort(before.second);
            std::ranges::sort(after.second);
        }
        Check(before == after, "a saved section loads to itself");
    }
}

/// Lets the document say how it is changed: by each key of each section, with its value as a name.
void Edit(clsINI& document, Model& model) {
    document.AllowSaveFile(false);
    const Model plan = model;
    for (const auto& [name, keys] : plan.Sections) {
        for (const auto& [key, value] : keys) {
            Section* section = model.Find(name);
            switch (key.size() % 5) {
            case 0:
                document.WriteValue(name, value, key);
                if (section == nullptr) section = &model.Sections.emplace_back(name, std::vector<Key>());
                if (const auto found = Model::Find(*section, value); found != section->second.end())
                    found->second = key;
                else
                    Model::Add(*section, {value, key});
                break;
            case 1:
                document.DeleteKey(name, value);
                if (section == nullptr) break;
                if (const auto found = Model::Find(*section, value); found != section->second.end())
                    section->second.erase(found);
                break;
            case 2:
                document.DeleteSection(value);
                if (const Section* gone = model.Find(value))
                    model.Sections.erase(model.Sections.begin() + (gone - model.Sections.data()));
                break;
            case 3:
                if (section == nullptr || section->second.empty()) break;
                document.KeyName(name, 0, value);
                section->second.front().first = value;
                break;
            default:
                break;
            }
        }
    }
    document.AllowSaveFile(true);
}

/// The input itself; or, when it begins so, the rest of it behind a line long enough that the end of one of
/// the first blocks in which files are read falls into the rest. The line is mostly a comment, since a value
/// that long makes each run ten times slower.
std::string TextOf(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    if (size < 2 || data[0] != 0xFF) return text;
    const std::string start = data[1] % 16 == 0 ? "[S]\rk=" : ";";
    const std::size_t length = 65536 * (1 + data[1] % 2) - data[1] / 2 - start.size();
    return start + std::string(length, 'v') + text.substr(2);
}

} // namespace

} // namespace morvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane::fuzz;
    static const Scratch scratch;
    const std::string text = TextOf(data, size);
    morvane::clsINI document;
    document.LoadINI(
        scratch.Write("document", {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
    Model model(text);
    CheckSame(document, model);
    CheckSaved(document, model);
    Model reloaded(model.Text());
    CheckReload(model, reloaded);
    document.LoadINI(document.FileName());
    CheckSame(document, reloaded);
    Edit(document, reloaded);
    CheckSame(document, reloaded);
    CheckSaved(document, reloaded);
    return 0;
}
