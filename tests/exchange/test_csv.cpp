// Competitors from delimited files, matched by headings or by dragging fields across.
#include "rows.h"

#include "exchange/FrmImport.h"
#include "exchange/csv_import.h"
#include "exchange/field_list.h"

#include "core/codec.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QMimeData>
#include <QtTest>

class TestCsv : public QObject
{
    Q_OBJECT
private slots:
    void loads_data();
    void loads();
    void screen_by_dragging();
};

namespace {
const QString Dancers = "SELECT competitor_id, forename, surname, age, town, fee, notes, group_id1, group_id2, (SELECT "
                        "group_concat(group_id) FROM competitor_groups g WHERE g.competitor_id = c.competitor_id) "
                        "FROM competitors c ORDER BY competitor_id";
}

void TestCsv::loads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("delim");
    QTest::addColumn<QList<int>>("map");  // file field per position; empty: matched by headings
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("expected");

    const QList<int> nfsa = {0, 1, 2, 3, -1, -1, 4};
    const QString one = "1 rows were successfully loaded. ", two = "2 rows were successfully loaded. ";
    QTest::newRow("headings, any case, quotes dropped")
        << QByteArray("\"NUMBER\",lastname,Firstname,Town,Event1,Event2,Age\r\n7,O'Neill,\"Amy\",Oban,E1,E1,9\r\n")
        << "," << QList<int>() << one << "7|Amy|O'Neill|9|Oban|~||E1|E1|E1";
    QTest::newRow("tab, more fields than placed") << QByteArray("1\tAmy\tWatt\t8\tOban\tx\ty\r\n2\tBeth\tRoss\t\tPerth\r\n")
        << "\t" << nfsa << two << "1|Amy|Watt|8|Oban|~||||~;2|Beth|Ross|~|Perth|~||||~";
    QTest::newRow("other delimiter, last line without end") << QByteArray("1;Amy;Watt;8;Oban\r\n2;Beth;Ross;7;Perth")
        << ";" << nfsa << two << "1|Amy|Watt|8|Oban|~||||~;2|Beth|Ross|7|Perth|~||||~";
    QTest::newRow("short lines skipped, fee and notes")
        << QByteArray("1,Amy,Watt,,Oban,12.5,Paid late\r\n\r\nx,y\r\n") << ","
        << QList<int>{0, 1, 2, -1, -1, -1, 4, -1, 5, -1, -1, 6} << one << "1|Amy|Watt|~|Oban|12.5|Paid late|||~";
    QTest::newRow("text age stops at its line") << QByteArray("1,Amy,Watt,8\r\n2,Beth,Ross,7\r\n3,Cara,Mair,nine\r\n")
        << "," << nfsa << two + "Line 3: the age \"nine\" is not a number." << "1|Amy|Watt|8||~||||~;2|Beth|Ross|7||~||||~";
    QTest::newRow("spreadsheet's empty rows passed over")
        << QByteArray("1,Amy,Watt,8,\r\n,,,,\r\n2,Beth,Ross,7,\r\n,,,,\r\n\"\",,,,\r\n") << "," << nfsa << two
        << "1|Amy|Watt|8||~||||~;2|Beth|Ross|7||~||||~";
    // Today's spreadsheets write UTF-8, often behind a byte-order mark; older ones Windows-1252.
    QTest::newRow("UTF-8 with mark, by headings") << QByteArray("\xEF\xBB\xBFNumber,Firstname,Lastname\r\n1,M\xC3\xB2rag,D\xC3\xB9ghlas\r\n")
        << "," << QList<int>() << one << "1|M\u00f2rag|D\u00f9ghlas|~||~||||~";
    QTest::newRow("UTF-8, dragged") << QByteArray("1,M\xC3\xB2rag,\xC5\x81\xC3\xB3" "d\xC5\xBA\r\n") << "," << nfsa << one
        << "1|M\u00f2rag|\u0141\u00f3d\u017a|~||~||||~";
    QTest::newRow("Windows-1252") << QByteArray("1,M\xF2rag,O\x92Neill\r\n") << "," << nfsa << one
        << "1|M\u00f2rag|O\u2019Neill|~||~||||~";
    QTest::newRow("mixed bytes read as Windows-1252") << QByteArray("1,M\xC3\xB2rag,Ross\r\n2,M\xF2rag,Ross\r\n") << ","
        << nfsa << two << "1|M\u00c3\u00b2rag|Ross|~||~||||~;2|M\u00f2rag|Ross|~||~||||~";
}

void TestCsv::loads()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, delim);
    QFETCH(QList<int>, map);
    QFETCH(QString, message);
    QFETCH(QString, expected);

    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    const bool byHeadings = map.isEmpty();
    const Csv_File csv = Read_Csv(Decode_Text(file), delim);
    if (byHeadings)
        for (const Csv_Item &i : Build_Csv_Lists(csv, delim, true, true).placed)
            map << i.index;
    // A second run gives no doubles.
    for (int run = 0; run < 2; ++run)
        QCOMPARE(Import_Csv(conn, comp, csv, delim, byHeadings, map).message(), message);
    QCOMPARE(Rows(conn, Dancers), expected);
}

void TestCsv::screen_by_dragging()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Fixture::Competition(conn);
    QFile f(env.file("entries.csv"));
    f.open(QIODevice::WriteOnly);
    f.write("Number,Surname,Firstname,Age\r\n4,Watt,Amy,8\r\n5,Ross,Beth,7\r\n");
    f.close();

    FrmImport screen;
    screen.LstComp_Click(screen.findChild<QListWidget *>("LstComp")->item(0));
    screen.findChild<QCheckBox *>("chk_header")->setChecked(true);
    Dialogs::queueText(env.file("entries.csv"));
    screen.CmdBrowse_Click();
    auto *list1 = screen.findChild<Field_List *>("List1");
    auto *list2 = screen.findChild<Field_List *>("List2");
    QCOMPARE(list2->count(), 0);
    const auto drop = [&](Field_List *from, Field_List *to, int row, QPoint at = QPoint(5, 5)) {
        QMimeData data;
        data.setData(Field_List::Mime_Type, from->objectName().toUtf8() + '\t' + QByteArray::number(row));
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QDropEvent ev(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(to->viewport(), &enter), QApplication::sendEvent(to->viewport(), &ev);
    };
    // Number, Firstname (the file's third field), Lastname, a <Blank> taken back again, Age.
    for (const auto &[back, row] : QList<QPair<bool, int>>{{false, 0}, {false, 1}, {false, 0}, {false, 1}, {true, 3}, {false, 0}})
        back ? drop(list2, list1, row) : drop(list1, list2, row);
    QCOMPARE(list2->count(), 4);
    QCOMPARE(list1->count(), 1);  // "<Blank>" stays to be used again

    Dialogs::clearRecords();
    screen.findChild<QPushButton *>("Command1")->click();
    QCOMPARE(Dialogs::texts(), QStringList({"2 rows were successfully loaded. "}));
    QCOMPARE(Rows(conn, "SELECT competitor_id, forename, surname, age FROM competitors ORDER BY 1"),
             QString("4|Amy|Watt|8;5|Beth|Ross|7"));

    // A typed name read on Enter, then matched by headings: a field dropped on the placed
    // <Blank> of Firstname fills it and Lastname stays third. A name not found clears the lists.
    f.setFileName(env.file("second.csv"));
    f.open(QIODevice::WriteOnly), f.write("Number,Forename,Lastname\r\n6,Cara,Bell\r\n"), f.close();
    auto *txtfile = screen.findChild<QLineEdit *>("txtfile");
    screen.findChild<QCheckBox *>("Check1")->setChecked(true);
    for (const QString &name : {"second.csv", "gone.csv"}) {
        txtfile->setText(env.file(name));
        QTest::keyClick(txtfile, Qt::Key_Return);
        if (list2->count())
            drop(list1, list2, 0, list2->visualItemRect(list2->item(1)).center());
        screen.findChild<QPushButton *>("CmdImport")->click();
    }
    QCOMPARE(Rows(conn, "SELECT forename, surname FROM competitors WHERE competitor_id = 6"), QString("Cara|Bell"));
    QCOMPARE(Dialogs::texts().mid(1), QStringList({"1 rows were successfully loaded. ", "File not found: " + env.file("gone.csv"),
                                                   "Required fields are Number, Forename and Surname"}));
    screen.findChild<QComboBox *>("LstDelim")->setCurrentIndex(2);
    screen.LstDelim_Click();
    QCOMPARE(Dialogs::lastRecord().text, QString("You must enter a delimiter!"));
}

QTEST_MAIN(TestCsv)
#include "test_csv.moc"
