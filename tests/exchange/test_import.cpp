// Export files of every generation read into a database that already holds a competition.
#include "rows.h"

#include "exchange/import_file.h"

#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QtTest>

namespace {
// Every table that holds rows of a competition by its id.
const QStringList Competition_Tables = {"dance_results", "highland_results", "judges_results", "comp_judges_results",
                                        "judges_results_judges", "judges", "overall_dance_results", "tie_break",
                                        "competitors", "competitor_groups", "age_groups", "categories",
                                        "category_dances", "dance_no_prizes", "dance_no_dancers"};
} // namespace

class TestImport : public QObject
{
    Q_OBJECT
private slots:
    void reads_each_generation_data();
    void reads_each_generation();
};

void TestImport::reads_each_generation_data()
{
    QTest::addColumn<QString>("file");    // fields split by |, lines by \n (made CR LF unless bare)
    QTest::addColumn<QString>("answer");  // "yes", "no" or "" for no question
    QTest::addColumn<QString>("check");   // :id is the competition id after the import
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("faultLine");

    const QString head = "1|9|New Games|02/02/2026\n";
    const QString r5 = "SELECT split_ages, parent_group_id, championship_title, championship_type, no_overall_prizes, "
                       "dancer_order, orderby, inc_t_fling FROM age_groups WHERE competition_id = :id";
    const QString r7 = "SELECT address1, address2, teacher, notes, custom1, custom4, postcode, (SELECT group_concat(group_id) "
                       "FROM competitor_groups WHERE competition_id = :id) FROM competitors WHERE competition_id = :id";
    const QString r7line = head + "7|12|Amy|Watt|Oban|9||01/06/2026|E1|||||||";
    const QString replace = "1|9|Old Games|01/01/2026|Org\n7|3|New|Dancer|Oban|||x||||||||\n";
    const QString replaced = "SELECT (SELECT count(*) FROM competitions), competition_organiser, (SELECT group_concat("
                             "competitor_id) FROM competitors WHERE competition_id = :id), (SELECT count(*) FROM "
                             "categories WHERE competition_id = :id), (SELECT count(*) FROM custom_reports_fields) "
                             "FROM competitions WHERE competition_id = :id";
    const QString comp = "SELECT competition_organiser, organiser_role, competition_venue, competition_town, address, "
                         "registration_id, registration_key FROM competitions WHERE competition_id = :id";

    QTest::newRow("1: last index 8, empty address") << "1|9|New Games|02/02/2026|Org|Role|Venue|Town|\n" << "" << comp
                                                     << "Org|Role|Venue|Town| |~|~" << 0;
    QTest::newRow("1: last index 11") << "1|9|New Games|02/02/2026|Org|Role|Venue|Town|Addr|1234|KEY|a@b\n" << ""
                                      << comp << "Org|Role|Venue|Town|Addr|1234|KEY" << 0;
    QTest::newRow("1: last index 10 leaves -99") << "1|9|New Games|02/02/2026|O|R|V|T|A|1|K\n2|X|Extra\n" << ""
        << "SELECT :id, (SELECT count(*) FROM competitions), category FROM categories WHERE competition_id = :id"
        << "-99|1|Extra" << 0;
    QTest::newRow("5: last index 6") << head + "5|77|E1|Under 8|H|6|N\n" << "" << r5 << "N||||6|A|~|Y" << 0;
    QTest::newRow("5: last index 8") << head + "5|77|E1|Under 8|H|6|N||P0\n" << "" << r5 << "N|P0|||6|A|~|Y" << 0;
    QTest::newRow("5: last index 10") << head + "5|77|E1|Under 8|H|6|N|Y|P0|Title|O\n" << "" << r5
                                      << "Y|P0|Title|O|6|A|~|Y" << 0;
    QTest::newRow("5: last index 14") << head + "5|77|E1|Under 8|H|6|N|Y|P0|Title|O|3|D|4|N\n" << "" << r5
                                      << "Y|P0|Title|O|3|D|4|N" << 0;
    QTest::newRow("5: last index 14, all empty") << head + "5|77|E1|Under 8|H|6|N||||||||\n" << "" << r5
                                                 << "N||||1||~|Y" << 0;
    QTest::newRow("5: last index 13 is a fault") << head + "5|77|E1|Under 8|H|6|N|Y|P0|T|O|3|D|4\n" << "" << r5 << "" << 2;
    QTest::newRow("7: last index 15") << r7line + "\n" << "" << r7 << "|||||||E1" << 0;
    QTest::newRow("7: last index 19") << r7line + "|A1|A2|T|N\n" << "" << r7 << "A1|A2|T|N||||E1" << 0;
    QTest::newRow("7: last index 23 keeps custom") << r7line + "|A1|A2|T|N|C1|C2|C3|C4\n" << "" << r7
                                                   << "A1|A2|T|N|C1|C4||E1" << 0;
    QTest::newRow("7: last index 24 drops custom") << r7line + "|A1|A2|T|N|C1|C2|C3|C4|PC\n" << "" << r7
                                                   << "A1|A2|T|N|||PC|E1" << 0;
    QTest::newRow("Yes replaces, orphans stay") << replace << "yes" << replaced << "1|~|3|0|1" << 0;
    QTest::newRow("No changes nothing") << replace << "no" << replaced << "1|~|5|4|2" << 0;
    QTest::newRow("apostrophes") << "1|9|St Andrew's|02/02/2026\n6|4|O'Neill|Sean\n" << ""
        << "SELECT competition_name, (SELECT surname FROM judges WHERE competition_id = :id) FROM competitions "
           "WHERE competition_id = :id" << "St Andrew's|O'Neill" << 0;
    QTest::newRow("bare LF") << "bare:" + head + "2|X|Extra\n" << ""
                             << "SELECT category FROM categories WHERE competition_id = :id" << "Extra" << 0;
    QTest::newRow("blank line stops, lines before stay") << head + "\n2|X|Extra\n" << ""
        << "SELECT count(*) FROM competitions" << "2" << 2;
    QTest::newRow("last line without line end ignored") << head + "2|X|Extra" << ""
        << "SELECT count(*) FROM categories WHERE competition_id = :id" << "0" << 0;
    QTest::newRow("empty marks: 0 single, NULL three") << head + "10|E1|1|12|\n9|CH|1|12||5|\n" << ""
        << "SELECT (SELECT points_awarded1 FROM comp_judges_results WHERE competition_id = :id), points_awarded1, "
           "points_awarded2, points_awarded3 FROM judges_results WHERE competition_id = :id" << "0|~|5|~" << 0;
    QTest::newRow("text in a number place never runs") << head + "8|E1|1|0|1); DELETE FROM competitions --\n" << ""
        << "SELECT count(*) FROM competitions" << "2" << 2;
    QTest::newRow("judges matched by name, each remapped once over other judges")
        << head + "8|E1|1|0|5\n8|E1|1|1|4\n8|E1|1|2|6\n6|5|Kerr|Ann\n6|4|Grant|Bo\n6|6|Ross|Cy\n" << ""
        << "SELECT group_concat(surname) FROM (SELECT g.surname FROM judges_results_judges j JOIN judges g ON "
           "g.judge_id = j.judge_id WHERE j.competition_id = :id ORDER BY j.result_no)" << "Kerr,Grant,Ross" << 0;
    QTest::newRow("report rows before any report") << head + "14|Oban\n" << ""
        << "SELECT count(*) FROM custom_reports_fields WHERE id IS NULL" << "0" << 2;
    QString perTable, others;
    for (const QString &t : Competition_Tables) {
        perTable += QString(perTable.isEmpty() ? "SELECT " : " || ',' || ") + "(SELECT count(*) FROM " + t
                    + " WHERE competition_id = :id)";
        others += " + (SELECT count(*) FROM " + t + " WHERE competition_id = 99)";
    }
    QTest::newRow("every table of the old competition emptied first") << "every:" + replace + "2|X|Extra\n" << "yes"
        << perTable + ", 0" + others << "0,0,0,0,0,0,0,0,1,0,0,1,0,0,0|15" << 0;
    QTest::newRow("16-bit line counter") << head + QString("x\n").repeated(32766) + "2|X|Late\n" << ""
        << "SELECT count(*) FROM categories WHERE category = 'Late'" << "1" << 32768;
    QTest::newRow("dance ids differ: remaps chain, prizes keep theirs")
        << head + "4|PRI|18|5\n10|E1|18|12|80\n11|E1|18|3\n3|18|Beta\n3|19|Gamma\n" << ""
        << "SELECT (SELECT dance_id FROM category_dances WHERE competition_id = :id), (SELECT dance_id FROM "
           "comp_judges_results WHERE competition_id = :id), (SELECT dance_id FROM dance_no_prizes WHERE "
           "competition_id = :id), (SELECT dance_id FROM dances WHERE dance = 'Gamma')" << "20|20|18|20" << 0;
}

void TestImport::reads_each_generation()
{
    QFETCH(QString, file);
    QFETCH(QString, answer);
    QFETCH(QString, check);
    QFETCH(QString, expected);
    QFETCH(int, faultLine);

    TestDataFolder env;
    Connection conn;
    conn.open();
    const short old = Fixture::Competition(conn, "Old Games", "01/01/2026");
    Fixture::Competitor(conn, old, 5, "Old", "Dancer", {"E1"});
    conn.execute("INSERT INTO custom_reports(competition_id, name) VALUES (?, 'First'), (?, 'Second')", {old, old});
    conn.execute("INSERT INTO custom_reports_fields(id, fvalue) SELECT id, 'Oban' FROM custom_reports");
    conn.execute("INSERT INTO dances(dance_id, dance) VALUES (18, 'Alpha'), (19, 'Beta')");
    for (const char *name : {"One", "Two", "Three"})  // judge ids 1 to 3 are taken
        Fixture::Judge(conn, old, "Old", name);
    if (file.startsWith("every:")) {
        file = file.mid(6);
        for (const QString &t : Competition_Tables)  // a row of this competition and one of another
            conn.execute("INSERT INTO " + t + "(competition_id) VALUES (?), (99)", {old});
    }

    const bool bare = file.startsWith("bare:");
    QString text = file.mid(bare ? 5 : 0).replace('|', '\t');
    if (!bare)
        text.replace("\n", "\r\n");
    Import_Hooks hooks;
    QStringList asked;
    hooks.confirm = [&](const QString &t) { asked << t; return answer == "yes"; };
    const Import_Result r = Import_Text(conn, text, hooks);

    QCOMPARE(r.line, faultLine);
    QCOMPARE(r.status, faultLine ? Import_Result::Fault : answer == "no" ? Import_Result::Declined : Import_Result::Done);
    QCOMPARE(asked.size(), answer.isEmpty() ? 0 : 1);
    if (!answer.isEmpty()) {
        QCOMPARE(Current_Competition_Id, old);
        QCOMPARE(asked.first(), QString("A matching event has been found in the database: \nOld Games 01/01/2026\n"
                                        "Continuing may delete data relating to that event."));
    }
    if (!expected.isEmpty())
        QCOMPARE(Rows(conn, QString(check).replace(":id", QString::number(Current_Competition_Id))), expected);
    QVERIFY(!conn.inTransaction());
}

QTEST_GUILESS_MAIN(TestImport)
#include "test_import.moc"
