#include "FrmReports.h"
#include "lineup_sheet.h"
#include "report.h"
#include "report_output.h"
#include "core/globals.h"

#include <QGroupBox>
#include <QListWidget>
#include <QVBoxLayout>

FrmReports::FrmReports(QWidget *parent)
    : Screen(QStringLiteral("FrmReports"), App_Title + QStringLiteral(" - Line up sheets"), parent)
{
    auto *frame = new QGroupBox(QStringLiteral("Select Event"), this);
    LstGroup = new QListWidget(frame);
    LstGroup->setObjectName(QStringLiteral("LstGroup"));
    auto *inner = new QVBoxLayout(frame);
    inner->addWidget(LstGroup);
    auto *outer = new QVBoxLayout(this);
    outer->addWidget(frame);
    connect(LstGroup, &QListWidget::itemClicked, this, &FrmReports::LstGroup_Click);

    if (!Open_Connection())
        return;
    const Lineup_Events events = Read_Lineup_Events(conn(), Current_Competition_Id);
    LstGroup->addItems(events.texts);
    Group_Codes = events.codes;
}

void FrmReports::LstGroup_Click()
{
    const int index = LstGroup->currentRow();
    if (index < 0 || index >= Group_Codes.size())
        return;
    Current_Group_Id = Group_Codes.at(index);
    auto report = Report::Load(QStringLiteral("DataReport5"));
    Fill_Lineup_Sheet(conn(), *report, Current_Competition_Id, Current_Group_Id, LstGroup->item(index)->text());
    Show_Report(report, window());
}
