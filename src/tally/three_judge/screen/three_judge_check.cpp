// The cross-check buttons of the three-judge screen: Create File writes the
// event's compare file, Check Results compares with the other computer's.
#include "three_judge_screen.h"
#include "core/errors.h"
#include "core/globals.h"
#include "crosscheck/check_run.h"
#include "crosscheck/compare_file.h"
#include "ui/application.h"

#include <QPlainTextEdit>

namespace {

// The checker boxes show one labelled line per value.
QString Box_Text(const QString &text)
{
    return QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

void ThreeJudgeScreen::Write_Compare_After_Save()
{
    try {
        Write_Compare_File_If_Checking(conn(), Compare_Three_Judge, m_eventName);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void ThreeJudgeScreen::Show_Checker(const QString &text1, const QString &text2)
{
    int lines = 0;
    for (const QString &text : {text1, text2})
        lines = qMax(lines, text.isEmpty() ? 0 : int(text.count(QLatin1Char('\n'))) + 1);
    for (QPlainTextEdit *box : {txt_checker1, txt_checker2}) {
        box->setPlainText(box == txt_checker1 ? text1 : text2);
        box->setFixedHeight(box->fontMetrics().lineSpacing() * lines + 2 * box->frameWidth() + 8);
    }
    txt_checker1->parentWidget()->setVisible(lines > 0);
}

void ThreeJudgeScreen::CmdPrepare_Click()
{
    // Asks whatever the auto-save setting, and tells nothing on success.
    Hide_Quick_Find();
    Own_Choice();
    if (Unsaved_Marks() && !Ask_And_Save())
        return;
    try {
        Write_Compare_File(conn(), Compare_Three_Judge, m_eventName);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    Set_Dirty(false);
}

void ThreeJudgeScreen::CmdCheck_Click()
{
    Hide_Quick_Find();
    Own_Choice();
    if (!Check_Unsaved(false))
        return;
    try {
        Run_Check(conn(), m_eventName, QStringLiteral("Champ"), window());
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    // A missing file leaves the texts of the last check, and they are shown again.
    Show_Checker(Box_Text(Check_Text_1), Box_Text(Check_Text_2));
    Set_Dirty(false);
}
