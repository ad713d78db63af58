#include "frmonlinereg.h"
#include "entries_file.h"
#include "online_entries.h"

#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "publish/ftp/cftp.h"
#include "ui/grid/flex_grid.h"

#include <QDate>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
template <typename W, typename... A>
W *Named(const char *name, A &&...args)
{
    auto *w = new W(std::forward<A>(args)...);
    w->setObjectName(QLatin1String(name));
    return w;
}
} // namespace

frmonlinereg::frmonlinereg(QWidget *parent)
    : Screen(QStringLiteral("frmonlinereg"), App_Title + QStringLiteral(" - Online Registration"), parent),
      m_ftp(std::make_unique<cFTP>())
{
    Label1 = Named<QLabel>("Label1", QStringLiteral("Step 1. Click to check for registrations"));
    cmd_check = Named<QPushButton>("cmd_check", QStringLiteral("Check"));
    lbl_check = Named<QLabel>("lbl_check");
    ProgressBar1 = Named<QProgressBar>("ProgressBar1");
    frm_preview = Named<QGroupBox>("frm_preview", QStringLiteral("Data Preview"));
    MSFlexGrid1 = Named<FlexGrid>("MSFlexGrid1");
    Label3 = Named<QLabel>("Label3", QStringLiteral("Step 2. Enter next competitor number to use                   "
                                                    "and then click Load "));
    comp_no = Named<QLineEdit>("comp_no");
    cmd_load = Named<QPushButton>("cmd_load", QStringLiteral("Load"));

    auto *step1 = new QHBoxLayout;
    step1->addWidget(Label1);
    step1->addWidget(cmd_check);
    step1->addWidget(lbl_check, 1);
    auto *previewLayout = new QVBoxLayout(frm_preview);
    previewLayout->addWidget(MSFlexGrid1);
    auto *step2 = new QHBoxLayout;
    step2->addWidget(Label3);
    step2->addWidget(comp_no);
    step2->addWidget(cmd_load);
    step2->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(step1);
    layout->addWidget(ProgressBar1);
    layout->addWidget(frm_preview, 1);
    layout->addLayout(step2);
    comp_no->setMaximumWidth(80);

    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ProgressBar1->hide();
    Show_Step2(false);
    connect(cmd_check, &QPushButton::clicked, this, &frmonlinereg::cmd_check_Click);
    connect(cmd_load, &QPushButton::clicked, this, &frmonlinereg::cmd_load_Click);

    // The service wants active mode and files as they are.
    m_ftp->SetModeActive();
    m_ftp->SetTransferBinary();
    Open_Connection();
}

frmonlinereg::~frmonlinereg() = default;

void frmonlinereg::Show_Step2(bool on)
{
    for (QWidget *w : {static_cast<QWidget *>(MSFlexGrid1), static_cast<QWidget *>(comp_no),
                       static_cast<QWidget *>(cmd_load), static_cast<QWidget *>(Label3),
                       static_cast<QWidget *>(frm_preview)}) {
        w->setVisible(on);
        w->setEnabled(on);
    }
}

void frmonlinereg::Bar(int value)
{
    if (value < 0) {
        ProgressBar1->hide();
        return;
    }
    if (value == 0) {
        ProgressBar1->setRange(0, 10);
        ProgressBar1->show();
    }
    ProgressBar1->setValue(value);
}

void frmonlinereg::cmd_check_Click()
{
    Show_Step2(false);
    cmd_check->setEnabled(false);
    try {
        Online_Check check;
        check.bar = [this](int v) { Bar(v); };
        check.box = [](const QString &text) { Msg_Box(text); };
        if (check.Check_Online_Entries(conn(), *m_ftp, Current_Competition_Id)) {
            const Entries_Preview p = Preview_Entries(conn(), Current_Competition_Id, check.localPath());
            MSFlexGrid1->Set_Size(qMax(1, static_cast<int>(p.rows.size())), Entries_File::Columns);
            for (int c = 0; c < Entries_File::Columns; ++c)
                if (Entries_File::Column_Width(c) > 0)
                    MSFlexGrid1->Set_Col_Width(c, Entries_File::Column_Width(c));
            for (int r = 0; r < p.rows.size(); ++r)
                for (int c = 0; c < Entries_File::Columns; ++c)
                    MSFlexGrid1->Set_Text(r, c, p.rows[r].value(c));
            if (p.noFile) {
                Msg_Box(Online_Msg::No_Registrations);
            } else {
                lbl_check->setText(p.label());
                if (p.newCount > 0) {
                    Show_Step2(true);
                    comp_no->setText(QString::number(p.nextNumber));
                }
            }
            Bar(-1);
        }
    } catch (...) {
        cmd_check->setEnabled(true);
        throw;   // to the program's last catch, as a fault of the check
    }
    cmd_check->setEnabled(true);
}

QList<QStringList> frmonlinereg::Grid_Rows() const
{
    QList<QStringList> rows;
    for (int r = 0; r < MSFlexGrid1->rowCount(); ++r) {
        QStringList row;
        for (int c = 0; c < MSFlexGrid1->columnCount(); ++c)
            row << MSFlexGrid1->Text(r, c);
        rows << row;
    }
    return rows;
}

void frmonlinereg::cmd_load_Click()
{
    try {
        const int count = Load_Entries(conn(), Current_Competition_Id, comp_no->text(), Grid_Rows(),
                                       QDate::currentDate());
        Show_Step2(false);
        lbl_check->setText(Loaded_Label(count));
    } catch (const AppError &) {
        Msg_Box(Online_Msg::Load_Failed);
    }
}
