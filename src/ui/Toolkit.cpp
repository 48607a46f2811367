#include "Toolkit.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>

namespace ui {

static const bool OnWindows = QSysInfo::kernelType() == "winnt";

void PrepareToolkit() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, !OnWindows);
    // Where the toolkit keeps settings in files, there is no place for this one.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

bool IsTooLongName(const QString& name) {
    constexpr qsizetype Longest = 255;
    return (OnWindows ? name.size() : QFile::encodeName(name).size()) > Longest;
}

} // namespace ui
