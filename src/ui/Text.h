#pragma once

#include <QFile>
#include <QString>

#include <string>

namespace ui {

/// Bytes in the platform's encoding as a text to show; what is no text shows as replacement characters.
inline QString FromBytes(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

/// A text that the user typed or picked, as bytes in the platform's encoding.
inline std::string ToBytes(const QString& text) { return QFile::encodeName(text).toStdString(); }

} // namespace ui
