#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace morvane {

struct IniKey {
    std::string Name;
    std::string Value;
};

/// One section of a document: an ordered list of keys, of which several may have the same name. Indexes count
/// from 0 and must lie below Count().
class IniSection {
  public:
    explicit IniSection(std::string name);

    std::string Name;

    [[nodiscard]] std::size_t Count() const { return Order.size(); }
    [[nodiscard]] const IniKey& Key(std::size_t index) const { return Keys[Order[index].Record]; }

    /// Index of the first key of exactly this name, or -1.
    [[nodiscard]] std::int32_t FindKey(std::string_view keyName) const;

    /// Inserts a key, also when there is one of that name; the index at which it now stands. One whose name
    /// is a number of 32 bits stands before the first key whose name is none or a greater one, any other
    /// before the first key whose name is greater byte by byte; at the end when there is no such key.
    std::int32_t AddKey(std::string keyName, std::string value);

    void SetValue(std::size_t index, std::string value) {
        Keys[Order[index].Record].Value = std::move(value);
    }
    /// Gives a key another name and leaves it where it stands.
    void Rename(std::size_t index, std::string newName);
    void DeleteKey(std::size_t index);

  private:
    /// A place in the list: which record of Keys stands there, and the number that its name is, if it is one.
    struct Place {
        std::uint32_t Record;
        bool Numeric;
        std::int32_t Number;
    };
    using PlaceIterator = std::vector<Place>::const_iterator;

    [[nodiscard]] const std::string& NameAt(const Place& place) const { return Keys[place.Record].Name; }
    [[nodiscard]] PlaceIterator TailBegin() const;
    [[nodiscard]] PlaceIterator PlaceForNumber(std::int32_t number) const;
    [[nodiscard]] PlaceIterator PlaceForName(std::string_view keyName) const;
    void CheckTidy();

    std::vector<IniKey> Keys; ///< in no order, so that an insertion moves the small places alone
    std::vector<Place> Order; ///< the list
    bool Tidy = true; ///< numeric names in ascending order come first, then all others in ascending order
    std::size_t Numbers = 0; ///< how many numeric names come first; kept only while tidy
};

} // namespace morvane
