#include "Toolkit.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <iostream>

// Passes the toolkit's messages on, except for what the offscreen platform says again and again: it would
// bury the message of a failing test.
static void WithoutChatter(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    for (const char* chatter : {"propagateSizeHints", "XDG_RUNTIME_DIR", "plugin does not support"})
        if (message.contains(chatter)) return;
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << '\n';
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(WithoutChatter);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8"); // file names are UTF-8, whatever the caller's locale
    ui::PrepareToolkit();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
