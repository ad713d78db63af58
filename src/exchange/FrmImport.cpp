#include "FrmImport.h"
#include "field_list.h"

#include "core/codec.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

FrmImport::FrmImport(QWidget *parent)
    : Screen(QStringLiteral("FrmImport"), App_Title + QStringLiteral(" - Import Delimited Data"), parent)
{
    const auto named = [](QWidget *w, const char *name, const char *tip) {
        w->setObjectName(QLatin1String(name));
        if (tip)
            w->setToolTip(QLatin1String(tip));
        return w;
    };
    LstComp = new QListWidget(this);
    named(LstComp, "LstComp", "Select competition");
    txtfile = new QLineEdit(this);
    named(txtfile, "txtfile", "Enter filename");
    CmdBrowse = new QPushButton(QStringLiteral("..."), this);
    named(CmdBrowse, "CmdBrowse", "Browse for file");
    LstDelim = new QComboBox(this);
    named(LstDelim, "LstDelim", "Select Delimiter");
    LstDelim->addItems({QStringLiteral("Comma"), QStringLiteral("Tab"), QStringLiteral("Other")});
    TxtDelim = new QLineEdit(this);
    named(TxtDelim, "TxtDelim", "Insert Delimiter");
    TxtDelim->hide();
    chk_header = new QCheckBox(QStringLiteral("The first row of data contains field headings"), this);
    named(chk_header, "chk_header", nullptr);
    Check1 = new QCheckBox(QStringLiteral("Match data using the field headings"), this);
    named(Check1, "Check1", nullptr);
    List1 = new Field_List(QStringLiteral("List1"), this);
    List2 = new Field_List(QStringLiteral("List2"), this);
    List1->setPartner(List2);
    List2->setPartner(List1);
    List1->setKeepsBlank(true);
    List3 = new QListWidget(this);
    named(List3, "List3", nullptr);
    List3->addItems(Csv_Field_Names());
    List3->setSelectionMode(QAbstractItemView::NoSelection);
    CmdImport = new QPushButton(QStringLiteral("&Import"), this);
    named(CmdImport, "CmdImport", "Click to start import");
    Command1 = new QPushButton(QStringLiteral("Import"), this);
    named(Command1, "Command1", "Click to start import");
    ProgressBar1 = new QProgressBar(this);
    named(ProgressBar1, "ProgressBar1", nullptr);
    ProgressBar1->hide();
    auto *help = new QLabel(QStringLiteral(
        "Drag fields from your import file and match up with the associated fied in the database. Where your field "
        "does not exist use blank fields. Make sure the order is the same as in your import file."), this);
    help->setObjectName(QStringLiteral("Label1"));
    help->setWordWrap(true);

    auto *grid = new QGridLayout(this);
    grid->addWidget(LstComp, 0, 0, 3, 1);
    grid->addWidget(txtfile, 0, 1, 1, 2);
    grid->addWidget(CmdBrowse, 0, 3);
    grid->addWidget(LstDelim, 1, 1);
    grid->addWidget(TxtDelim, 1, 2);
    grid->addWidget(chk_header, 2, 1, 1, 2);
    grid->addWidget(Check1, 3, 1, 1, 2);
    grid->addWidget(help, 4, 0, 1, 4);
    const QStringList headings{QStringLiteral("Fields of your file"), QStringLiteral("Matched fields, in database order"),
                               QStringLiteral("Database fields")};
    for (int col = 0; col < 3; ++col)
        grid->addWidget(new QLabel(headings[col], this), 5, col);
    grid->addWidget(List1, 6, 0);
    grid->addWidget(List2, 6, 1);
    grid->addWidget(List3, 6, 2);
    grid->addWidget(CmdImport, 7, 3);
    grid->addWidget(Command1, 6, 3, Qt::AlignBottom);
    grid->addWidget(ProgressBar1, 7, 0, 1, 3);
    grid->setRowStretch(6, 1);

    connect(LstComp, &QListWidget::itemClicked, this, &FrmImport::LstComp_Click);
    connect(CmdBrowse, &QPushButton::clicked, this, &FrmImport::CmdBrowse_Click);
    connect(LstDelim, &QComboBox::activated, this, &FrmImport::LstDelim_Click);
    // A name typed in full counts as chosen; ticking a heading box after the
    // file was read builds the lists for the new choice.
    connect(txtfile, &QLineEdit::returnPressed, this, &FrmImport::Build_Lists);
    for (QCheckBox *box : {chk_header, Check1})
        connect(box, &QCheckBox::toggled, this, [this] {
            if (!m_file.lines.isEmpty())
                Build_Lists();
        });
    connect(CmdImport, &QPushButton::clicked, this, &FrmImport::CmdImport_Click);
    connect(Command1, &QPushButton::clicked, this, &FrmImport::CmdImport_Click);

    Enable_Rest(false);
    if (Open_Connection()) {
        RowSet rs = conn().query(QStringLiteral("SELECT competition_name, competition_id FROM competitions ORDER BY 1 DESC"));
        for (; !rs.eof(); rs.next()) {
            auto *item = new QListWidgetItem(rs.text(QStringLiteral("competition_name")), LstComp);
            item->setData(Qt::UserRole, int(rs.toShort(QStringLiteral("competition_id"))));
        }
    }
}

void FrmImport::Enable_Rest(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{txtfile, CmdBrowse, LstDelim, TxtDelim, chk_header, Check1, List1,
                                                        List2, CmdImport, Command1})
        w->setEnabled(on);
}

void FrmImport::LstComp_Click(QListWidgetItem *item)
{
    if (!item)
        return;
    Current_Competition_Id = static_cast<short>(item->data(Qt::UserRole).toInt());
    Enable_Rest(true);
}

void FrmImport::CmdBrowse_Click()
{
    const QString named = txtfile->text().trimmed();
    const QString file = Get_Open_File(QStringLiteral("Browse for file"),
                                       named.isEmpty() ? Data_Dir : QFileInfo(named).absolutePath(),
                                       QStringLiteral("Text files (*.csv *.txt *.tab);;All files (*)"));
    if (file.isEmpty())
        return;
    txtfile->setText(file);
    Build_Lists();
}

void FrmImport::LstDelim_Click()
{
    const QString choice = LstDelim->currentText();
    m_delim = choice == QLatin1String("Comma") ? QStringLiteral(",") : QStringLiteral("\t");
    TxtDelim->setVisible(choice == QLatin1String("Other"));
    if (!txtfile->text().isEmpty())
        Build_Lists();
}

void FrmImport::Build_Lists()
{
    if (LstDelim->currentText() == QLatin1String("Other")) {
        if (TxtDelim->text().isEmpty()) {
            Msg_Box(QStringLiteral("You must enter a delimiter!"));
            return;
        }
        m_delim = TxtDelim->text();
    }
    bool ok = false;
    const QString text = Read_Text_File(txtfile->text(), &ok);
    // Lists of an earlier file must not stay to be imported under a new name.
    m_file = Csv_File();
    List1->clear();
    List2->clear();
    if (!ok) {
        Msg_Box(QStringLiteral("File not found: ") + txtfile->text(), vbExclamation);
        return;
    }
    m_file = Read_Csv(text, m_delim);
    const Csv_Lists lists = Build_Csv_Lists(m_file, m_delim, chk_header->isChecked(), Check1->isChecked());
    for (const Csv_Item &i : lists.unplaced)
        List1->addField(i.text, i.index);
    for (const Csv_Item &i : lists.placed)
        List2->addField(i.text, i.index);
}

void FrmImport::CmdImport_Click()
{
    if (List2->count() < 3) {
        Msg_Box(QStringLiteral("Required fields are Number, Forename and Surname"));
        return;
    }
    QList<int> map;
    for (int i = 0; i < List2->count(); ++i)
        map << List2->item(i)->data(Qt::UserRole).toInt();
    ProgressBar1->setRange(0, qMax(m_file.highest, 1));
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    const Csv_Result r = Import_Csv(conn(), Current_Competition_Id, m_file, m_delim, chk_header->isChecked(), map,
                                    [this](int line) { ProgressBar1->setValue(line + 1); });
    // A fault ends the load at its line; the rows before it stay, and the box says both.
    if (r.line == 0)
        ProgressBar1->setValue(ProgressBar1->maximum());
    Msg_Box(r.message());
    ProgressBar1->hide();
}
