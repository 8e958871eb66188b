#pragma once

// Dialogs driven by real keys and clicks offscreen, step by step.
#include "core/panels/panelfacts.h"
#include "layoutfile.h"
#include "panelcell.h"
#include "paneldialogs.h"
#include "panelgrid.h"
#include "pwmdialog.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

// Runs steps on the modal dialog that the call after it opens; a dialog the steps leave
// open is cancelled, so a failing test cannot hang.
inline void WhenModal(std::function<void(QDialog&)> steps, bool* ran = nullptr)
{
    QTimer::singleShot(0, [steps, ran] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        steps(*dialog);
        if (ran)
            *ran = true;
        if (dialog->isVisible())
            dialog->reject();
    });
}

// Carries out steps ("verb:widget=value", separated by "|") on a dialog:
//   type:W=T   select all in W, type T       keys:W=T    type T into W as it stands
//   down:W=N   press Down N times in W       press:W     press Space on button W
//   click:W    click W                       ok=on|off   OK is enabled or not
//   shows:W=T  W's text or current item      index:W=N   count:W=N  a list's index, size
//   enabled:W=B hidden:W=B checked:W=B       selected:W=T  W has the focus, T selected
//   wide:W     W shows its whole text        title=T     note=T  (a label shows T)
//   nested:W=S click W, carry out S (";" between steps) on the dialog it opens, then OK
inline void Drive(QDialog& dialog, const QString& steps, QChar separator = u'|')
{
    for (const QString& step : steps.split(separator, Qt::SkipEmptyParts)) {
        SCOPED_TRACE(step.toStdString());
        const QString verb = step.section(u':', 0, 0).section(u'=', 0, 0);
        const QString name = step.section(u':', 1).section(u'=', 0, 0);
        const QString value = step.section(u'=', 1);
        QWidget* w = name.isEmpty() ? &dialog : dialog.findChild<QWidget*>(name);
        ASSERT_TRUE(w) << "no widget " << name.toStdString();
        auto* edit = qobject_cast<QLineEdit*>(w);
        auto* combo = qobject_cast<QComboBox*>(w);
        if (verb == "type" || verb == "keys" || verb == "down" || verb == "press")
            w->setFocus();
        if (verb == "type") {
            QTest::keyClick(w, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(w, Qt::Key_Delete);
        }
        QStringList labels;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            labels << label->text();
        if (verb == "type" || verb == "keys")
            QTest::keyClicks(w, value);
        else if (verb == "down")
            for (int i = 0; i < value.toInt(); ++i)
                QTest::keyClick(w, Qt::Key_Down);
        else if (verb == "press")
            QTest::keyClick(w, Qt::Key_Space);
        else if (verb == "click")
            QTest::mouseClick(w, Qt::LeftButton);
        else if (verb == "nested") {
            bool ran = false;
            WhenModal([value](QDialog& nested) { Drive(nested, value + ";ok=on;click:ok", u';'); },
                      &ran);
            QTest::mouseClick(w, Qt::LeftButton);
            EXPECT_TRUE(ran);
        } else {
            EXPECT_EQ(verb == "ok"
                          ? (dialog.findChild<QPushButton*>("ok")->isEnabled() ? "on" : "off")
                      : verb == "shows"   ? (edit ? edit->text() : combo->currentText())
                      : verb == "index"   ? QString::number(combo->currentIndex())
                      : verb == "count"   ? QString::number(combo->count())
                      : verb == "enabled" ? QVariant(w->isEnabled()).toString()
                      : verb == "hidden"  ? QVariant(w->isHidden()).toString()
                      : verb == "checked"
                          ? QVariant(qobject_cast<QAbstractButton*>(w)->isChecked()).toString()
                      : verb == "selected"
                          ? (dialog.focusWidget() == w ? edit->selectedText() : "not focused")
                      : verb == "wide"
                          ? (w->width() >= w->fontMetrics().horizontalAdvance(edit->text()) + 12
                                 ? ""
                                 : "narrow")
                      : verb == "title" ? dialog.windowTitle()
                      : verb == "note"  ? (labels.contains(value) ? value : labels.join(u','))
                                        : "unknown step",
                      value);
        }
    }
}

struct PropertyDialogs : testing::Test
{
    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        CPwmDialog::SetFrequencyLimits(31, 62500);
    }

    static QString Record(const CPanelGrid& grid, const QString& prefix)
    {
        for (const QString& line : QString::fromUtf8(CLayoutFile::Write(grid)).split("\r\n"))
            if (line.startsWith(prefix))
                return line.mid(prefix.size());
        return QString();
    }

    // Rows of "name|line|ports|steps": a panel placed alone in a grid and edited through the
    // editor's dialogs, the dialog driven by the steps and closed with OK. Then "=record=R" is
    // the layout's record of the panel (without it the steps cancel and the record stays as it
    // was), and further steps after "=" are the panel's facts.
    static void Run(std::span<const CText> rows)
    {
        for (const QString row : rows) {
            SCOPED_TRACE(row.section(u'|', 0, 0).toStdString());
            QStringList steps, facts;
            for (const QString& step : row.section(u'|', 3).split(u'|'))
                (step.startsWith(u'=') ? facts : steps) << step.mid(step.startsWith(u'='));
            const QString record =
                facts.value(0).startsWith("record=") ? facts.takeFirst().mid(7) : "";
            CRecordingMessenger messenger;
            CPanelGrid grid{messenger};
            CPanelDialogs dialogs;
            std::unique_ptr<CPanel> panel =
                MakePanel(row.section(u'|', 1, 1), Split(row.section(u'|', 2, 2)));
            ASSERT_TRUE(panel);
            panel->SetName("P1");
            const int area = panel->GetArea();
            const int column = area == 1   ? CPanelGrid::GetInputColumn()
                               : area == 2 ? CPanelGrid::GetOutputColumn()
                                           : 1;
            const QString prefix = area == 1 ? "I_01:" : area == 2 ? "O_01:" : "0101:";
            ASSERT_TRUE(grid.Place(column, 1, std::make_unique<CPanelCell>(std::move(panel))));
            const QString before = Record(grid, prefix);
            bool ran = false;
            WhenModal(
                [&](QDialog& d) {
                    Drive(d, steps.join(u'|'));
                    if (d.isVisible())
                        QTest::mouseClick(d.findChild<QPushButton*>("ok"), Qt::LeftButton);
                },
                &ran);
            EXPECT_EQ(grid.EditCell(column, 1, dialogs), !record.isEmpty());
            EXPECT_TRUE(ran);
            EXPECT_EQ(Record(grid, prefix), record.isEmpty() ? before : record);
            ExpectFacts(*grid.GetCell(column, 1)->GetPanel(), facts.join(u'|'));
        }
    }
};
