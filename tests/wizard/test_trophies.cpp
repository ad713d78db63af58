#include "setup/trophies/frmtrophies.h"
#include "setup/trophies/frmwizardtrophies.h"
#include "setup/trophies/trophy_logic.h"
#include "reports/pdf_text.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "reports/report.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QtTest>

class TestTrophies : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { delete m_env; }
    void table_data();
    void table();
    void sheet_shows_the_table();
    void pages_rewrite_their_table();

private:
    TestDataFolder *m_env = nullptr;
    Connection m_c;
    int m_trophy = 0;
};

namespace {

QString Table(Connection &c, int trophy)
{
    QStringList out;
    for (const Trophy_Row &r : Trophy_Top_10(c, Current_Competition_Id, trophy))
        out << r.number + "=" + r.points;
    return out.join(' ');
}

QString Details(Connection &c, int trophy)
{
    QStringList out;
    for (const char *t : {"custom_reports_groups", "custom_reports_dances", "custom_reports_fields"}) {
        QStringList v;
        for (RowSet rs = c.query(QString("SELECT * FROM %1 WHERE id = %2 ORDER BY 2").arg(t).arg(trophy)); !rs.eof(); rs.next())
            v << rs.value(1).toString();
        out << v.join(',');
    }
    return out.join(" / ");
}

const QString Ten = "101=137 102=91 103=71 104=53 105=37 106=23 107=20 108=15 109=10 110=5 111=5";

} // namespace

// Twelve dancers in event A, the tenth and eleventh level; a big score in
// event B's dance 3, which is too small to count, and one in event C.
void TestTrophies::init()
{
    m_env = new TestDataFolder;
    m_c.open();
    Transaction t(m_c);
    Current_Competition_Id = Fixture::Competition(m_c);
    Current_Competition_Name = "Test Games";
    Current_Competition_Date = "01/07/2026";
    for (const char *e : {"A", "B", "C"})
        Fixture::Event(m_c, Current_Competition_Id, e, QString("Under 1%1").arg(e), "H");
    const QList<int> fling = {137, 91, 71, 53, 37, 23, 20, 15, 10, 5, 5, 3};
    auto points = [&](const char *event, int dance, int dancer, int p) {
        m_c.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points) "
                    "VALUES(?,?,?,?,?)", {Current_Competition_Id, event, dance, dancer, p});
    };
    for (int i = 0; i < 12; ++i) {
        Fixture::Competitor(m_c, Current_Competition_Id, 101 + i, QString("F%1").arg(101 + i),
                            i ? QString("S%1").arg(101 + i) : "O'Neill", {"A", "B", "C"});
        points("A", 1, 101 + i, fling[i]);
    }
    points("A", 2, 101, 0);
    points("B", 1, 103, 200);
    points("B", 3, 104, 500);
    points("C", 1, 105, 1000);
    m_c.execute("INSERT INTO dance_no_dancers VALUES(?, 'B', 3)", {Current_Competition_Id});
    m_c.execute("UPDATE competitors SET custom1 = 'Oban', custom2 = 'Skye' WHERE competitor_id = 101");
    m_c.execute("UPDATE competitors SET custom1 = 'Oban' WHERE competitor_id = 102");
    m_c.execute("UPDATE competitors SET custom3 = 'skye' WHERE competitor_id = 103");
    m_trophy = Create_Trophy(m_c, Current_Competition_Id, "St Andrew's Cup");
}

void TestTrophies::table_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("dances");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("table");
    QTest::newRow("no events") << QStringList{} << QStringList{"1"} << QStringList{} << "";
    QTest::newRow("ties at tenth kept") << QStringList{"A"} << QStringList{"1"} << QStringList{} << Ten;
    QTest::newRow("second event, flagged dance out") << QStringList{"A", "B"} << QStringList{"1", "3"} << QStringList{}
                                                     << "103=271 " + Ten.mid(0, 16) + Ten.mid(23);
    QTest::newRow("dance of no chosen event") << QStringList{"A"} << QStringList{"3"} << QStringList{} << "";
    QTest::newRow("one value") << QStringList{"A"} << QStringList{"1"} << QStringList{"Oban"} << "101=137 102=91";
    QTest::newRow("two values, a dancer matching both counts twice")
        << QStringList{"A"} << QStringList{"1"} << QStringList{"Oban", "Skye"} << "101=274 102=91 103=71";
}

void TestTrophies::table()
{
    QFETCH(QStringList, groups);
    QFETCH(QStringList, dances);
    QFETCH(QStringList, fields);
    Save_Page(m_c, m_trophy, Trophy_Page::Groups, groups);
    Save_Page(m_c, m_trophy, Trophy_Page::Dances, dances);
    Save_Page(m_c, m_trophy, Trophy_Page::Fields, fields);
    QTEST(Table(m_c, m_trophy), "table");
}

void TestTrophies::sheet_shows_the_table()
{
    Save_Page(m_c, m_trophy, Trophy_Page::Groups, {"A", "B"});
    Save_Page(m_c, m_trophy, Trophy_Page::Dances, {"1", "3"});
    auto report = Report::Load("DataReport8");
    Fill_Trophy_Report(m_c, *report, m_trophy, "St Andrew's Cup");
    const QString pdf = m_env->file("trophy.pdf");
    QCOMPARE(report->Render_Pdf(pdf), 1);
    const QString page = Pdf_Pages(pdf).value(0);
    QVERIFY2(In_Order(page, {"Test Games", "St Andrew's Cup", "01/07/2026", "Winners", "Dance Points",
                             "103 F103 S103 271", "101 F101 O'Neill 137", "110 F110 S110 5", "111 F111 S111 5",
                             "Printed: "}), qPrintable(page));
    QVERIFY(!page.contains("F112"));
}

void TestTrophies::pages_rewrite_their_table()
{
    frmwizardtrophies f;
    f.show();
    auto click = [&](const char *name) {
        QTest::mouseClick(f.findChild<QPushButton *>(name), Qt::LeftButton);
        QCoreApplication::processEvents();
    };
    auto pick = [&](const char *list, const QString &text) {
        auto *l = f.findChild<QListWidget *>(list);
        for (int i = 0; i < l->count(); ++i)
            if (l->item(i)->text().startsWith(text))
                l->setCurrentRow(i);
    };
    auto heading = [&] { return f.findChild<QLabel *>("LblMain")->text(); };
    click("cmdnext0");
    QCOMPARE(Dialogs::texts(), QStringList{"You must enter a trophy name"});
    click("cmdcreate");
    QTest::keyClicks(f.findChild<QLineEdit *>("txtname"), "Reel o' Tulloch Quaich");
    click("cmdnext0");
    QCOMPARE(heading(), "Age Groups");
    const int id = Read_Trophies(m_c, Current_Competition_Id).value(0).id;  // sorted by name
    pick("lstgroups", "Under 1A");
    click("CmdAdd1");
    click("CmdNext1");
    QCOMPARE(f.findChild<QListWidget *>("lstdances")->count(), 4);
    pick("lstdances", "Fling");
    click("cmdadd2");
    click("cmdnext2");
    QCOMPARE(f.findChild<QListWidget *>("lstcustom")->count(), 2);  // Oban, Skye once
    pick("lstcustom", "Skye");
    click("cmdadd3");
    click("cmdnext3");
    QCOMPARE(Dialogs::lastRecord().text, "Changes Saved!");
    QCOMPARE(heading(), "Trophies");
    QCOMPARE(Details(m_c, id), "A / 1 / Skye");
    click("cmdnext0");
    QCOMPARE(f.findChild<QListWidget *>("lstincgroups")->count(), 1);
    QCOMPARE(f.findChild<QListWidget *>("lstgroups")->count(), 2);
    Dialogs::queueAnswer(vbNo);
    click("CmdReset");
    QCOMPARE(Details(m_c, id), "A / 1 / Skye");
    Dialogs::queueAnswer(vbYes);
    click("CmdReset");
    click("CmdNext1");  // the dance stays until its page is left
    QCOMPARE(Details(m_c, id), " / 1 / Skye");
    click("cmdprev");
    QCOMPARE(Details(m_c, id), " /  / Skye");
    click("cmdprev0");
    QCOMPARE(heading(), "Overall Trophies");
    Dialogs::queueAnswer(vbYes);
    click("cmddelete0");
    QCOMPARE(Dialogs::lastRecord().text, "Do you wish to delete this trophy?");
    QCOMPARE(Details(m_c, id), " /  / ");
    QCOMPARE(Fixture::Count(m_c, "custom_reports"), 1);

    frmtrophies t;
    t.show();
    auto *list = t.findChild<QListWidget *>("List1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    auto *preview = t.findChild<QPrintPreviewDialog *>("DataReport8");
    QVERIFY(preview);
    preview->close();
}

QTEST_MAIN(TestTrophies)
#include "test_trophies.moc"
