// The five sheets of the selected event, shown or printed from the screen's
// report buttons.
#include "three_judge_screen.h"
#include "tally/three_judge/sheets/three_judge_sheets.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "reports/report.h"
#include "reports/report_output.h"

#include <QListWidget>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace {

// The print buttons go through the print dialog, all pages; with no printer
// installed the engine says so and offers a PDF.
void Print_Through_Dialog(const Report &report, QWidget *parent)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        Print_Report(report);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    printer.setPrintRange(QPrinter::AllPages);
    report.Render(&printer);
}

} // namespace

ThreeJudge::Sheet_Event ThreeJudgeScreen::Sheet_Event() const
{
    ThreeJudge::Sheet_Event e;
    e.competition = Current_Competition_Id;
    e.group = Current_Group_Id;
    e.eventText = LstGroup->currentItem() ? LstGroup->currentItem()->text() : QString();
    e.premiership = m_kind.danceIdsFromCategory;
    for (int i = 0; i < 4; ++i)
        e.danceCaptions[i] = Dance_Buttons[i]->text();
    e.danceIds = Event_Dance_Ids;
    e.noOverallPrizes = No_Overall_Prizes;
    return e;
}

void ThreeJudgeScreen::Show_Sheet(QPushButton *button)
{
    using Fill = std::shared_ptr<Report> (*)(Connection &, const ThreeJudge::Sheet_Event &);
    struct Sheet { QPushButton *show, *print; Fill fill; bool errorBox; };
    const Sheet sheets[] = {
        {CmdHR, CmdPRHR, &ThreeJudge::Fill_Overall_Report, false},
        {CmdJR, CmdPRJR, &ThreeJudge::Fill_Judges_Report, true},
        {cmdCallback, cmdPRCallback, &ThreeJudge::Fill_Callback_Report, true},
        {Cmd_Top_10, Cmd_Top_10_Print, &ThreeJudge::Fill_Top_10_Report, false},
        {CmdSOBHD, cmdprSOBHD, &ThreeJudge::Fill_Sobhd_Return, false},
    };
    for (const Sheet &s : sheets) {
        if (button != s.show && button != s.print)
            continue;
        try {
            const std::shared_ptr<Report> report = s.fill(conn(), Sheet_Event());
            if (button == s.show)
                Show_Report(report, this);
            else
                Print_Through_Dialog(*report, this);
        } catch (const AppError &) {
            if (!s.errorBox)
                throw;
            Msg_Box(QStringLiteral("There has been an error udating this result. Please retry!"), vbCritical,
                    QStringLiteral("Validation Error"));
        }
        return;
    }
}
