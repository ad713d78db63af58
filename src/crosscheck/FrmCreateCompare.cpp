#include "FrmCreateCompare.h"

#include "compare_file.h"

#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

FrmCreateCompare::FrmCreateCompare(QString &folderBox, const QString &eventName, QWidget *parent)
    : QDialog(parent), m_folderBox(folderBox), m_eventName(eventName)
{
    setObjectName(QStringLiteral("FrmCreateCompare"));
    setWindowTitle(QStringLiteral("Create Results File"));
    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Directory")), 0, 0);
    Text1 = new QLineEdit(folderBox);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMinimumWidth(320);
    grid->addWidget(Text1, 0, 1);
    CmdBrowse = new QPushButton(QStringLiteral("..."));
    CmdBrowse->setObjectName(QStringLiteral("CmdBrowse"));
    CmdBrowse->setToolTip(QStringLiteral("Browse for Files"));
    grid->addWidget(CmdBrowse, 0, 2);
    CmdSave = new QPushButton(QStringLiteral("Create File"));
    CmdSave->setObjectName(QStringLiteral("CmdSave"));
    CmdSave->setAutoDefault(false);
    grid->addWidget(CmdSave, 1, 1, 1, 2, Qt::AlignRight);
    connect(CmdSave, &QPushButton::clicked, this, &FrmCreateCompare::CmdSave_Click);
    connect(CmdBrowse, &QPushButton::clicked, this, &FrmCreateCompare::CmdBrowse_Click);
    adjustSize();
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());

    m_conn.open();
    CmdSave_Click();
}

FrmCreateCompare::~FrmCreateCompare() = default;

void FrmCreateCompare::Open_Modal(QString &folderBox, const QString &eventName, QWidget *parent)
{
    FrmCreateCompare form(folderBox, eventName, parent);
    if (!form.Unloaded())
        form.exec();
}

void FrmCreateCompare::CmdSave_Click()
{
    const QString folder = Text1->text();
    if (!QFileInfo(folder).isDir()) {
        Msg_Box(QStringLiteral("Please select a valid directory!"));
        return;
    }
    try {
        Write_Compare_File_To(m_conn, 1, folder, m_eventName);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an error creating the results file!"), vbExclamation,
                QStringLiteral("Create Results File"));
        return;
    }
    accept();
}

void FrmCreateCompare::CmdBrowse_Click()
{
    m_folderBox = Browse_For_Folder(QStringLiteral("&Select a directory to create file:"), m_folderBox);
    Text1->setText(m_folderBox);
}

void FrmCreateCompare::done(int result)
{
    if (!m_unloaded) {
        m_unloaded = true;
        Last_Compare_Dir = Text1->text();
        m_conn.close();
    }
    QDialog::done(result);
}
