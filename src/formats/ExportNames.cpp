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
    switch (kind) {
    case SoundKind::InstBank:
        return "Morvane.ibk";
    case SoundKind::Midi:
        return "Song " + PadNumber(number, 3) + ".mid";
    case SoundKind::Voc:
        return "Sound " + PadNumber(number, 3) + ".voc";
    case SoundKind::None:
        break;
    }
    return {};
}

} // namespace morvane
