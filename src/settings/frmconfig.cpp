#include "frmconfig.h"

#include "settings_store.h"

#include "core/dialogs.h"
#include "core/globals.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {
QVBoxLayout *Layout_Of(QWidget *w) { return static_cast<QVBoxLayout *>(w->layout()); }

QLabel *Help(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

QComboBox *Choice(const QString &name, const QStringList &items, int position, const QString &tip)
{
    auto *box = new QComboBox;
    box->setObjectName(name);
    box->addItems(items);
    box->setPlaceholderText(QStringLiteral("Select Option"));
    box->setCurrentIndex(position);
    box->setToolTip(tip);
    return box;
}
} // namespace

frmconfig::frmconfig(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmconfig"));
    setWindowTitle(QStringLiteral("System Settings"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_conn.open();
    new QVBoxLayout(this);

    Switch(QStringLiteral("chk_judges_points"), QStringLiteral("Show Judges Placings"),
           QStringLiteral("If selected all competitors with judges placings will be displayed in the Championship "
                          "Overall report and Callback Report."),
           QStringLiteral("Show all judges placings on reports"), Opt_Judges_Points, 0);

    Layout_Of(this)->addWidget(new QLabel(QStringLiteral("Auto Check Mode")));
    Layout_Of(this)->addWidget(Help(QStringLiteral("None - no automatic checking of results\nWrite - will "
                                                   "automatically create a file to be checked on tallying")));
    QComboBox *combo1 = Choice(QStringLiteral("Combo1"), {QStringLiteral("None"), QStringLiteral("Write")},
                               Opt_Check_Mode, QStringLiteral("Set to Write to create compare files for another "
                                                              "computer to check"));
    connect(combo1, &QComboBox::activated, this, [this](int i) { Set_Check_Mode(m_conn, static_cast<short>(i)); });
    Layout_Of(this)->addWidget(combo1);

    Layout_Of(this)->addWidget(new QLabel(QStringLiteral("Compare Directory")));
    Layout_Of(this)->addWidget(Help(QStringLiteral("Select the directory or network where the other computer is "
                                                   "creating compare files that we want to check")));
    auto *row = new QHBoxLayout;
    txt_filename = new QLineEdit(Opt_Check_Dir);
    txt_filename->setObjectName(QStringLiteral("txt_filename"));
    txt_filename->setToolTip(QStringLiteral("Enter the directory where the compare files are"));
    auto *browse = new QPushButton(QStringLiteral("..."));
    browse->setObjectName(QStringLiteral("CmdBrowse"));
    browse->setToolTip(QStringLiteral("Browse for Files"));
    connect(browse, &QPushButton::clicked, this, &frmconfig::CmdBrowse_Click);
    row->addWidget(txt_filename);
    row->addWidget(browse);
    Layout_Of(this)->addLayout(row);

    Switch(QStringLiteral("chk_address"), QStringLiteral("Show Competitor Address on SOBHD Championship Report"),
           QStringLiteral("If selected then address and town information will be printed for the top 6 "
                          "competitors in each championship in the SOBHD report."),
           QString(), Opt_Show_Address, 1);
    Switch(QStringLiteral("chk_autosave"),
           QStringLiteral("Auto save changes made in tallier screen without confirm prompts."),
           QStringLiteral("If selected then changes made in the tallier screen will automatically save without "
                          "requiring a \"prompt to save\""),
           QStringLiteral("Auto save tallier changes"), Opt_Auto_Save, 2);
    Switch(QStringLiteral("chk_judges_order"), QStringLiteral("Change judges name order"),
           QStringLiteral("If selected then judges firstname will be displayed before judges lastname in tallier "
                          "dropdown lists"),
           QStringLiteral("Reverse the judges names"), Opt_Judges_Order, 3);

    Layout_Of(this)->addWidget(new QLabel(QStringLiteral("Language")));
    QComboBox *combo2 = Choice(QStringLiteral("Combo2"), {QStringLiteral("UK"), QStringLiteral("International")},
                               Opt_Locale ? 1 : 0, QStringLiteral("Select language"));
    connect(combo2, &QComboBox::activated, this, [this](int i) { Set_Locale(m_conn, static_cast<short>(i)); });
    Layout_Of(this)->addWidget(combo2);

    adjustSize();
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

QCheckBox *frmconfig::Switch(const QString &name, const QString &caption, const QString &help, const QString &tip,
                             bool value, int option)
{
    auto *box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setChecked(value);
    box->setToolTip(tip);
    connect(box, &QCheckBox::toggled, this,
            [this, option](bool on) { Set_Switch(m_conn, static_cast<Switch_Option>(option), on); });
    Layout_Of(this)->addWidget(box);
    Layout_Of(this)->addWidget(Help(help));
    return box;
}

void frmconfig::CmdBrowse_Click()
{
    // A cancelled browser gives an empty text, and that is kept.
    const QString folder = Browse_For_Folder(QStringLiteral("&Select a directory to locate file:"), Opt_Check_Dir);
    txt_filename->setText(folder);
    Set_Check_Dir(m_conn, folder);
}

void frmconfig::Finish()
{
    if (m_conn.isOpen()) {
        Set_Check_Dir(m_conn, Opt_Check_Dir);
        m_conn.close();
    }
}

void frmconfig::closeEvent(QCloseEvent *event)
{
    Finish();
    QDialog::closeEvent(event);
}

void frmconfig::reject()
{
    Finish();
    QDialog::reject();
}
