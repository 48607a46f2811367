#pragma once

#include "TestWindow.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace morvane {

/// Answers save dialogs: notes what they propose, types a name and answers the questions that follow in turn.
struct SaveScript {
    explicit SaveScript(TestWindow& test) {
        test.Answer = [this](QWidget& dialog) { return Handle(dialog); };
    }

    bool Handle(QWidget& dialog) {
        if (auto* save = qobject_cast<QFileDialog*>(&dialog)) {
            auto* name = save->findChild<QLineEdit*>("fileNameEdit");
            Seen.push_back({save->windowTitle().toStdString(), save->directory().path().toStdString(),
                            name->text().toStdString(), FiltersShown(*save)});
            if (Names.empty()) {
                save->reject();
                return true;
            }
            if (!Names.front().empty()) name->setText(QString::fromStdString(Names.front()));
            Names.erase(Names.begin());
            QTest::keyClick(name, Qt::Key_Return);
            return true;
        }
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (box == nullptr || box->button(QMessageBox::No) == nullptr) return false;
        Questions.push_back(box->text().toStdString());
        const bool yes = Yes.empty() || Yes.front();
        if (!Yes.empty()) Yes.erase(Yes.begin());
        box->button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
        return true;
    }

    static std::string FiltersShown(const QFileDialog& dialog) {
        const auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
        QStringList texts;
        for (int i = 0; i < combo->count(); ++i) texts += combo->itemText(i);
        return texts.join('|').toStdString();
    }

    struct Proposal {
        std::string Title, Folder, Name, Filters;
    };
    std::vector<std::string>
        Names;             ///< to type, in turn; an empty one keeps the name that stands there; then cancel
    std::vector<bool> Yes; ///< answers to questions, in turn; then always yes
    std::vector<Proposal> Seen;
    std::vector<std::string> Questions;
};

} // namespace morvane
