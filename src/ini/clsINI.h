#pragma once

#include "AnyValue.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

struct IniKey {
    std::string Name;
    std::string Value;
    std::optional<std::int32_t> Number; ///< what the name is as a number, if it is one
};

struct IniSection {
    std::string Name;
    std::vector<IniKey> Keys;
};

/// A text file of sections and keys, held as an ordered document and written back whole when it is changed.
/// Names are matched exactly, byte by byte; of several sections or keys of one name the first counts. Copies
/// are independent. Documents are small: lookups search from the front, and every change rewrites the file.
class clsINI {
  public:
    /// Shows a message box with the critical-error icon and an OK button.
    using ShowMessage = std::function<void(const std::string& title, const std::string& text)>;

    /// An empty document. What goes wrong while saving is told to the function; to nobody when there is none.
    explicit clsINI(ShowMessage showMessage = {});

    /// While false, SaveFile does nothing and changes stay in memory. True at first.
    [[nodiscard]] bool AllowSaveFile() const { return SavingAllowed; }
    void AllowSaveFile(bool newAllowSaveFile) { SavingAllowed = newAllowSaveFile; }

    [[nodiscard]] std::int32_t NumberOfSections() const { return static_cast<std::int32_t>(Sections.size()); }

    /// Number of keys of a section; 0 when there is no such section.
    [[nodiscard]] std::int32_t NumberOfKeys(std::string_view sectionName) const;

    /// Name of a section by its index from 0. Fails with error 9 when there is no such index.
    [[nodiscard]] std::string SectionName(std::int32_t sectionNum) const;

    /// Name of a key by its index from 0; an empty text when there is no such section. Fails with error 9
    /// when the section has no such index.
    [[nodiscard]] std::string KeyName(std::string_view sectionName, std::int32_t keyNum) const;

    /// Gives a key another name; it keeps its place, and nothing is saved. Fails as reading the name does.
    void KeyName(std::string_view sectionName, std::int32_t keyNum, std::string newName);

    /// The path last given to LoadINI; empty until then.
    [[nodiscard]] const std::string& FileName() const { return LoadedName; }

    /// Writes the document to its file. Shows a message when that fails, and raises nothing.
    void SaveFile() const;

    /// Replaces the document by the content of a file; by nothing when there is no normal file of that name.
    /// Fails when the file cannot be read; the document then holds what came before the failure.
    void LoadINI(std::string fileName);

    /// Removes a section with all its keys, or a key, if there is one of that name; saves in any case.
    void DeleteSection(std::string_view sectionName);
    void DeleteKey(std::string_view sectionName, std::string_view keyName);

    /// The value of a key, an empty one included; the default as text when there is no such key.
    [[nodiscard]] std::string ReadString(std::string_view sectionName, std::string_view keyName,
                                         const AnyValue& defaultValue = {}) const;

    /// The number that a value begins with, rounded to a whole one, a half to the even neighbour; blanks,
    /// tabs and line feeds anywhere in it are skipped. 0 when it does not begin with a number; the default
    /// when there is no such key. Fails with error 6 when the number or the default lies outside 32 bits,
    /// with error 13 when the default is a text that is not wholly a number.
    [[nodiscard]] std::int32_t ReadLong(std::string_view sectionName, std::string_view keyName,
                                        const AnyValue& defaultValue = {}) const;

    /// Gives a key a value, adding it and its section when missing, and saves. Names are written as they are:
    /// a key that begins with ";" or "[" or holds a "=" comes back from its file as something else. While a
    /// name or value holds a CR, nothing is saved and every attempt shows the message.
    void WriteValue(std::string_view sectionName, std::string_view keyName, std::string value);

  private:
    // Indexes count from 0; -1 stands for none.
    [[nodiscard]] std::int32_t FindSection(std::string_view sectionName) const;
    [[nodiscard]] std::int32_t FindKey(std::int32_t section, std::string_view keyName) const;
    std::int32_t AddSection(std::string sectionName);
    std::int32_t AddKey(std::int32_t section, std::string keyName, std::string value);
    void AddLine(std::string_view line);
    void AddLines(std::string_view text);
    [[nodiscard]] std::string Text() const;

    std::vector<IniSection> Sections;
    std::string LoadedName;
    bool SavingAllowed = true;
    ShowMessage Show;
};

} // namespace morvane
