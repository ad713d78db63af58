// The four report buttons of the mark screen: each saves first as a dance
// button does, then shows or prints the event's sheet. A fault anywhere
// gives the screen's one box and leaves the screen as it was.
#include "FrmTallyComp.h"
#include "result_sheets.h"
#include "core/pause.h"
#include "reports/report.h"
#include "reports/report_output.h"

namespace {

// A print goes to the default printer with no dialog; the screen waits,
// with window events running, until the job has been handed over.
void Print_And_Wait(const Report &report)
{
    Print_Report(report);
    while (Pending_Jobs() > 0)
        Pause_Ms(100);
}

} // namespace

void FrmTallyComp::CmdRpt_Click()
{
    Run_Report_Button(&FrmTallyComp::Show_Event_Report);
}

void FrmTallyComp::CmdPRRpt_Click()
{
    Run_Report_Button(&FrmTallyComp::Print_Event_Report);
}

void FrmTallyComp::cmdCallback_Click()
{
    Run_Report_Button(&FrmTallyComp::Show_Callback_Report);
}

void FrmTallyComp::cmdPRCallback_Click()
{
    Run_Report_Button(&FrmTallyComp::Print_Callback_Report);
}

void FrmTallyComp::Show_Event_Report()
{
    auto report = Report::Load(QStringLiteral("DataReport3"));
    Fill_Event_Report(conn(), *report, Event_Name, Overall.Split_Overalls);
    Show_Report(report, window());
}

void FrmTallyComp::Print_Event_Report()
{
    auto report = Report::Load(QStringLiteral("DataReport3"));
    Fill_Event_Report(conn(), *report, Event_Name, Overall.Split_Overalls);
    Print_And_Wait(*report);
}

void FrmTallyComp::Show_Callback_Report()
{
    auto report = Report::Load(QStringLiteral("DataReport6"));
    Fill_Callback_Report(conn(), *report, Event_Name);
    Show_Report(report, window());
}

void FrmTallyComp::Print_Callback_Report()
{
    auto report = Report::Load(QStringLiteral("DataReport6"));
    Fill_Callback_Report(conn(), *report, Event_Name);
    Print_And_Wait(*report);
}
