#include "FrmRestore.h"
#include "import_file.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/globals.h"
#include "core/routines.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

FrmRestore::FrmRestore(QWidget *parent)
    : Screen(QStringLiteral("FrmRestore"), App_Title + QStringLiteral(" - Restore"), parent)
{
    txtfile = new QLineEdit(this);
    txtfile->setObjectName(QStringLiteral("txtfile"));
    CmdBrowse = new QPushButton(QStringLiteral("..."), this);
    CmdBrowse->setObjectName(QStringLiteral("CmdBrowse"));
    lstFiles = new QListWidget(this);
    lstFiles->setObjectName(QStringLiteral("lstFiles"));
    CmdRestore = new QPushButton(QStringLiteral("&Restore"), this);
    CmdRestore->setObjectName(QStringLiteral("CmdRestore"));
    CmdRestore->setEnabled(false);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    Label_progress = new QLabel(QStringLiteral("Please Wait"), this);
    Label_progress->setObjectName(QStringLiteral("Label_progress"));
    ProgressBar1->hide();
    Label_progress->hide();

    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Restore directory"), this), 0, 0);
    grid->addWidget(txtfile, 0, 1);
    grid->addWidget(CmdBrowse, 0, 2);
    grid->addWidget(lstFiles, 1, 0, 1, 3);
    grid->addWidget(Label_progress, 2, 0);
    grid->addWidget(ProgressBar1, 2, 1, 1, 2);
    grid->addWidget(CmdRestore, 3, 2);
    grid->setRowStretch(1, 1);

    connect(lstFiles, &QListWidget::itemClicked, this, &FrmRestore::lstFiles_Click);
    connect(CmdBrowse, &QPushButton::clicked, this, &FrmRestore::CmdBrowse_Click);
    connect(CmdRestore, &QPushButton::clicked, this, &FrmRestore::CmdRestore_Click);
    // A folder typed in full is listed on Enter, as one chosen in the browser.
    connect(txtfile, &QLineEdit::returnPressed, this, &FrmRestore::List_Export_Files);

    txtfile->setText(Data_Dir + QStringLiteral("Backup"));
    Open_Connection();
    List_Export_Files();
}

void FrmRestore::List_Export_Files()
{
    if (!Is_Folder(txtfile->text())) {
        Msg_Box(QStringLiteral("Please select a valid directory!"));
        return;
    }
    lstFiles->clear();
    lstFiles->addItems(::List_Export_Files(txtfile->text()));
    if (lstFiles->count() > 0) {
        lstFiles->setCurrentRow(0);
        lstFiles_Click(lstFiles->item(0));
    }
}

void FrmRestore::lstFiles_Click(QListWidgetItem *item)
{
    if (!item)
        return;
    CmdRestore->setEnabled(true);
    m_chosen = item->text();
}

void FrmRestore::CmdBrowse_Click()
{
    const QString folder = Browse_For_Folder(QStringLiteral("&Select a restore directory:"), txtfile->text());
    if (folder.isEmpty())
        return;
    txtfile->setText(folder);
    List_Export_Files();
}

void FrmRestore::CmdRestore_Click()
{
    if (!conn().isOpen() || m_chosen.isEmpty())
        return;
    const QString path = QDir(txtfile->text()).filePath(m_chosen + QStringLiteral(".dmp"));
    Label_progress->show();
    ProgressBar1->show();
    setEnabled(false);
    Import_Hooks hooks;
    hooks.confirm = [](const QString &text) { return Msg_Box(text, vbYesNo, QStringLiteral("Continue Confirmation")) == vbYes; };
    hooks.start = [this](int maximum) {
        ProgressBar1->setRange(0, qMax(maximum, 1));
        ProgressBar1->setValue(0);
    };
    hooks.step = [this](int value) { ProgressBar1->setValue(value); };
    Doing doing(QStringLiteral("Importing ") + path);
    const Import_Result r = Import_File(conn(), path, hooks);
    setEnabled(true);
    Label_progress->hide();
    ProgressBar1->hide();
    // The competition read stays current, with its name, so the title and sheets carry it
    // (in a fresh data folder there was none before).
    if (Current_Competition_Id > 0) {
        Current_Competition_Name = r.contents.name;
        Current_Competition_Date = r.contents.date;
    }
    if (r.status == Import_Result::Done)
        Msg_Box(r.contents.summary(QStringLiteral("imported")), vbInformation, QStringLiteral("Restore"));
    else if (r.status == Import_Result::Fault)
        Msg_Box(Fault_Text((r.line > 0 ? QStringLiteral("line %1: ").arg(r.line) : QString()) + r.message)
                    + QStringLiteral("\nThe import stopped there: the lines before it have been imported. If the file came from another "
                                     "installation, send it to ")
                    + QLatin1String(Contacts::Support_Email),
                vbCritical, QStringLiteral("Import Error"));
}
