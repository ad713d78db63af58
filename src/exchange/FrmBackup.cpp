#include "FrmBackup.h"
#include "export_file.h"

#include "core/contacts.h"
#include "core/database_file.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/routines.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

namespace {

template <typename W>
W *Named(W *w, const char *name)
{
    w->setObjectName(QLatin1String(name));
    return w;
}

} // namespace

FrmBackup::FrmBackup(QWidget *parent) : Screen(QStringLiteral("FrmBackup"), App_Title + QStringLiteral(" - Backup"), parent)
{
    LstComp = Named(new QListWidget(this), "LstComp");
    txt_filename = Named(new QLineEdit(this), "txt_filename");
    txtfile = Named(new QLineEdit(this), "txtfile");
    CmdBrowse = Named(new QPushButton(QStringLiteral("..."), this), "CmdBrowse");
    CmdBackup = Named(new QPushButton(QStringLiteral("&Backup"), this), "CmdBackup");
    ProgressBar1 = Named(new QProgressBar(this), "ProgressBar1");
    Label_progress = Named(new QLabel(QStringLiteral("Please Wait"), this), "Label_progress");
    CmdBackup->setEnabled(false);
    ProgressBar1->hide();
    Label_progress->hide();

    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Competition"), this), 0, 0);
    grid->addWidget(LstComp, 1, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("Backup filename"), this), 2, 0);
    grid->addWidget(txt_filename, 2, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Backup directory"), this), 3, 0);
    grid->addWidget(txtfile, 3, 1);
    grid->addWidget(CmdBrowse, 3, 2);
    grid->addWidget(Label_progress, 4, 0);
    grid->addWidget(ProgressBar1, 4, 1, 1, 2);
    grid->addWidget(CmdBackup, 5, 2);
    grid->setRowStretch(1, 1);

    connect(LstComp, &QListWidget::itemClicked, this, &FrmBackup::LstComp_Click);
    connect(CmdBrowse, &QPushButton::clicked, this, &FrmBackup::CmdBrowse_Click);
    connect(CmdBackup, &QPushButton::clicked, this, &FrmBackup::CmdBackup_Click);

    txtfile->setText(Data_Dir + QStringLiteral("Backup"));
    if (Open_Connection())
        Fill_Competition_List();
}

void FrmBackup::Fill_Competition_List()
{
    LstComp->clear();
    RowSet rs = conn().query(QStringLiteral(
        "SELECT ifnull(competition_name,'') || ' ' || ifnull(competition_date,'') as competition_name, competition_id "
        "FROM competitions ORDER BY competition_name DESC, competition_date"));
    for (; !rs.eof(); rs.next()) {
        auto *item = new QListWidgetItem(rs.text(QStringLiteral("competition_name")), LstComp);
        item->setData(Qt::UserRole, int(rs.toShort(QStringLiteral("competition_id"))));
    }
}

void FrmBackup::LstComp_Click(QListWidgetItem *item)
{
    if (!item)
        return;
    // The chosen competition stays the current one after the screen closes.
    Current_Competition_Id = static_cast<short>(item->data(Qt::UserRole).toInt());
    CmdBackup->setEnabled(true);
    txt_filename->setText(item->text());
}

void FrmBackup::CmdBrowse_Click()
{
    txtfile->setText(Browse_For_Folder(QStringLiteral("&Select a backup directory:"), txtfile->text()));
}

void FrmBackup::CmdBackup_Click()
{
    if (txt_filename->text().isEmpty()) {
        Msg_Box(QStringLiteral("You must specify a backup filename"));
        return;
    }
    Data_Sub_Dir(QStringLiteral("Backup"));
    if (!Is_Folder(txtfile->text())) {
        Msg_Box(QStringLiteral("Please select a valid directory!"));
        return;
    }
    const QString path = QDir(txtfile->text()).filePath(Clean_Export_Name(txt_filename->text()) + QStringLiteral(".dmp"));
    ProgressBar1->setRange(0, 13);
    ProgressBar1->setValue(1);
    Label_progress->show();
    ProgressBar1->show();
    Doing doing(QStringLiteral("Exporting ") + Current_Competition_Name + QStringLiteral(" to ") + path);
    try {
        const File_Contents written =
            Write_Export_File(conn(), Current_Competition_Id, path, [this](int v) { ProgressBar1->setValue(v); });
        ProgressBar1->hide();
        Label_progress->hide();
        Msg_Box(written.summary(QStringLiteral("exported to ") + QDir::toNativeSeparators(path)), vbInformation,
                QStringLiteral("Backup"));
        return;
    } catch (const AppError &e) {
        Msg_Box(Fault_Text(e.message()) + QStringLiteral("\nThe export stopped: the file ") + path
                    + QStringLiteral(" is incomplete. If this goes on, write to ") + QLatin1String(Contacts::Support_Email),
                vbCritical, QStringLiteral("Export Error"));
    }
    ProgressBar1->hide();
    Label_progress->hide();
}
