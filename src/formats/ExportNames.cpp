#include "ExportNames.h"

#include <algorithm>

namespace morvane {

std::string PadNumber(std::int32_t value, std::int32_t width) {
    const std::string text = std::to_string(value);
    const auto length = static_cast<std::int32_t>(text.size());
    return std::string(static_cast<std::size_t>(std::max(width - length, 0)), '0') + text;
}

std::string PictureFileName(std::int32_t episode, std::int32_t group, std::int32_t image) {
    return "Picture " + std::to_string(episode) + "-" + PadNumber(group, 3) + "-" + PadNumber(image + 1, 2) +
           ".bmp";
}

std::string SoundFileName(SoundKind kind, std::int32_t number) {
    const SoundKindRow& row = RowOf(kind);
    return row.FileName + (row.Numbered ? PadNumber(number, 3) : "") + "." + row.Extension;
}

} // namespace morvane
