#include "IniSection.h"

#include "NumberText.h"

#include <algorithm>
#include <utility>

namespace morvane {

namespace {

/// Names compare by unsigned bytes, which is what std::string does; a numeric name starts with none above
/// '9'.
bool AboveEveryNumber(std::string_view name) {
    return !name.empty() && static_cast<unsigned char>(name.front()) > '9';
}

} // namespace

IniSection::IniSection(std::string name) : Name(std::move(name)) {}

IniSection::PlaceIterator IniSection::TailBegin() const {
    return Order.begin() + static_cast<std::ptrdiff_t>(Numbers);
}

std::int32_t IniSection::FindKey(std::string_view keyName) const {
    const auto sameName = [&](const Place& place) { return NameAt(place) == keyName; };
    auto begin = Order.begin();
    auto end = Order.end();
    if (Tidy) {
        if (const std::optional<std::int32_t> number = WholeNumber(keyName).Value) {
            begin = std::lower_bound(begin, TailBegin(), *number,
                                     [](const Place& place, std::int32_t n) { return place.Number < n; });
            end =
                std::find_if(begin, TailBegin(), [&](const Place& place) { return place.Number != *number; });
        } else {
            begin = std::lower_bound(
                TailBegin(), end, keyName,
                [this](const Place& place, std::string_view name) { return NameAt(place) < name; });
            if (begin != end) end = begin + 1;
        }
    }
    const auto found = std::find_if(begin, end, sameName);
    return found == end ? -1 : static_cast<std::int32_t>(found - Order.begin());
}

IniSection::PlaceIterator IniSection::PlaceForNumber(std::int32_t number) const {
    if (Tidy)
        return std::upper_bound(Order.begin(), TailBegin(), number,
                                [](std::int32_t n, const Place& place) { return n < place.Number; });
    return std::find_if(Order.begin(), Order.end(),
                        [=](const Place& place) { return !place.Numeric || number < place.Number; });
}

IniSection::PlaceIterator IniSection::PlaceForName(std::string_view keyName) const {
    const auto greater = [&](const Place& place) { return keyName < NameAt(place); };
    if (!Tidy) return std::find_if(Order.begin(), Order.end(), greater);
    if (!AboveEveryNumber(keyName)) {
        const auto found = std::find_if(Order.begin(), TailBegin(), greater);
        if (found != TailBegin()) return found;
    }
    return std::partition_point(TailBegin(), Order.end(),
                                [&](const Place& place) { return !greater(place); });
}

std::int32_t IniSection::AddKey(std::string keyName, std::string value) {
    const std::optional<std::int32_t> number = WholeNumber(keyName).Value;
    const auto index = (number ? PlaceForNumber(*number) : PlaceForName(keyName)) - Order.begin();
    // With room for the place made first, a failure to get memory leaves the section as it was.
    if (Order.size() == Order.capacity()) Order.reserve(std::max<std::size_t>(8, 2 * Order.size()));
    Keys.push_back({std::move(keyName), std::move(value)});
    Order.insert(Order.begin() + index,
                 {static_cast<std::uint32_t>(Keys.size() - 1), number.has_value(), number.value_or(0)});
    if (number)
        ++Numbers;
    else if (static_cast<std::size_t>(index) < Numbers)
        Tidy = false;
    return static_cast<std::int32_t>(index);
}

void IniSection::Rename(std::size_t index, std::string newName) {
    const std::optional<std::int32_t> number = WholeNumber(newName).Value;
    Place& place = Order[index];
    place.Numeric = number.has_value();
    place.Number = number.value_or(0);
    Keys[place.Record].Name = std::move(newName);
    CheckTidy();
}

void IniSection::DeleteKey(std::size_t index) {
    const std::uint32_t hole = Order[index].Record;
    const auto last = static_cast<std::uint32_t>(Keys.size() - 1);
    Order.erase(Order.begin() + static_cast<std::ptrdiff_t>(index));
    if (hole != last) {
        std::find_if(Order.begin(), Order.end(), [=](const Place& place) {
            return place.Record == last;
        })->Record = hole;
        Keys[hole] = std::move(Keys[last]);
    }
    Keys.pop_back();
    CheckTidy();
}

void IniSection::CheckTidy() {
    const auto tail =
        std::find_if_not(Order.cbegin(), Order.cend(), [](const Place& place) { return place.Numeric; });
    Numbers = static_cast<std::size_t>(tail - Order.cbegin());
    Tidy = std::none_of(tail, Order.cend(), [](const Place& place) { return place.Numeric; }) &&
           std::is_sorted(Order.cbegin(), tail,
                          [](const Place& a, const Place& b) { return a.Number < b.Number; }) &&
           std::is_sorted(tail, Order.cend(),
                          [this](const Place& a, const Place& b) { return NameAt(a) < NameAt(b); });
}

} // namespace morvane
