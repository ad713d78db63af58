// A whole competition written out on one installation and read in on another.
#include "rows.h"
#include "sample_competition.h"

#include "exchange/FrmBackup.h"
#include "exchange/FrmRestore.h"
#include "exchange/export_file.h"
#include "exchange/import_file.h"

#include "core/dialogs.h"
#include "core/globals.h"
#include "support/test_env.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_tally.h"
#include "tally/competition/prize_count.h"
#include "tally/three_judge/three_judge_tally.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

class TestRoundTrip : public QObject
{
    Q_OBJECT
private slots:
    void small_file_byte_for_byte();
    void results_equal_after_import_elsewhere();
};

namespace {

// Every event tallied as its mark screen would, then its results as text.
QString Tally_And_Read(Connection &conn, short comp)
{
    Current_Competition_Id = comp;
    for (RowSet ev = conn.query("SELECT competition_group_id, category, no_prizes FROM age_groups WHERE "
                                "competition_id = ? ORDER BY 1", {comp}); !ev.eof(); ev.next()) {
        Current_Group_Id = ev.text("competition_group_id");
        const QString kind = ev.text("category");
        if (kind == "C" || kind == "PS") {
            Tally_Event_Dances(conn);
            Tally_Overall(conn);
            continue;
        }
        for (RowSet d = conn.query("SELECT dance_id FROM category_dances WHERE competition_id = ? AND category_id = ?",
                                   {comp, kind}); !d.eof(); d.next()) {
            Current_Dance_Id = d.toShort("dance_id");
            short prizes = Choose_No_Prizes(conn, ev.toShort("no_prizes")).No_Prizes;
            Recalc_Dance(conn, prizes);
        }
        Recalc_Overall(conn, Read_Overall_Settings(conn));
    }
    QStringList out;
    for (const char *t : {"overall_dance_results", "dance_results", "overall_results", "highland_results", "national_results"}) {
        const QString dance = QString(t).contains("dance") ? "dance_id, " : "";
        out << Rows(conn, "SELECT group_id, " + dance + "competitor_id, placing, "
                              + (QString(t) == "dance_results" ? "result_no" : "tie") + ", points FROM " + t
                              + " WHERE competition_id = " + QString::number(comp) + " ORDER BY 1, 2, 3, 4");
    }
    return out.join('\n');
}

} // namespace

void TestRoundTrip::small_file_byte_for_byte()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    for (const char *sql : {"DELETE FROM dances WHERE dance_id > 2",
                            "INSERT INTO competitions(competition_name, competition_date, competition_venue, "
                            "competition_town) VALUES ('Caf\u00e9 Games', '1/7/2026', 'Park', 'Oban')",
                            "INSERT INTO categories VALUES (1, 'H', 'Highland')", "INSERT INTO category_dances VALUES (1, 'H', 1, 1)",
                            "INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, no_prizes, "
                            "split_overalls) VALUES (1, 'E1', 'Under 8', 'H', 6, 'N')",
                            "INSERT INTO competitors(competition_id, competitor_id, forename, surname, town, age, fee, "
                            "date_received, group_id1, postcode) VALUES (1, 7, 'Amy', 'O''Neill', 'Oban', 8, 12.5, "
                            "'1/6/2026', 'E1', 'PA1')",
                            "INSERT INTO judges_results_judges VALUES (1, 'E1', 1, 0, 1)",
                            "INSERT INTO comp_judges_results VALUES (1, 'E1', 1, 7, 87.5, NULL)",
                            "INSERT INTO judges VALUES (1, 1, 'Ann', 'Kerr')", "INSERT INTO custom_reports VALUES (1, 1, 'Best')",
                            "INSERT INTO custom_reports_groups VALUES (1, 'E1')", "INSERT INTO custom_reports_fields VALUES (1, 'Oban')",
                            "INSERT INTO custom_reports_dances VALUES (1, 1)"})
        conn.execute(QString::fromUtf8(sql));
    QList<int> steps;
    Write_Export_File(conn, 1, env.file("small.dmp"), [&](int v) { steps << v; });
    QFile f(env.file("small.dmp"));
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("1\t1\tCaf\xe9 Games\t1/7/2026\t\t\tPark\tOban\t\t\t\t\r\n2\tH\tHighland\r\n4\tH\t1\t1\r\n"
                                     "5\t1\tE1\tUnder 8\tH\t6\tN\tN\t\t\t\t6\tA\t\tY\r\n"
                                     "7\t7\tAmy\tO'Neill\tOban\t8\t12.5\t1/6/2026\tE1\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\tPA1\r\n"
                                     "8\tE1\t1\t0\t1\r\n10\tE1\t1\t7\t87.5\r\n6\t1\tKerr\tAnn\r\n3\t1\tFling\r\n3\t2\tSwords\r\n"
                                     "12\t1\tBest\r\n13\tE1\r\n14\tOban\r\n15\tFling\r\n"));
    QCOMPARE(steps, QList<int>({2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    QCOMPARE(Clean_Export_Name("Games 12/07/2026: <A&B>|?*\\"), QString("Games 12072026 AB"));

    // A name outside the code page goes out with "?" for its letters, never the byte 0x1A,
    // and read back in it still finds the competition it came from.
    conn.execute(QString::fromUtf8("UPDATE competitions SET competition_name = '\u0141\u00f3d\u017a Open'"));
    Write_Export_File(conn, 1, env.file("small.dmp"));
    QVERIFY(f.seek(0));
    const QByteArray bytes = f.readAll();
    QVERIFY(bytes.startsWith("1\t1\t?\xf3" "d? Open\t") && !bytes.contains('\x1a'));
    Import_Hooks yes;
    yes.confirm = [](const QString &) { return true; };
    QCOMPARE(Import_File(conn, env.file("small.dmp"), yes).contents.summary("imported") + Rows(conn, "SELECT count(*) "
             "FROM competitions"), "?\u00f3d? Open 1/7/2026: 1 competitor, 1 event, 1 mark imported.1");

    // Files in UTF-8 with or without a mark or in Windows-1252 read alike; an empty one held nothing.
    for (const QByteArray &file : {QByteArray("\xEF\xBB\xBF" "1\t1\tM\xC3\xB2rag Games\t2/7/2026\r\n"),
                                   QByteArray("1\t1\tM\xC3\xB2rag Games\t2/7/2026\r\n"),
                                   QByteArray("1\t1\tM\xF2rag Games\t2/7/2026\r\n"), QByteArray()}) {
        f.close();
        QVERIFY(f.open(QIODevice::WriteOnly) && f.write(file) == file.size());
        f.close();
        QCOMPARE(Import_File(conn, env.file("small.dmp"), yes).contents.summary("imported"),
                 file.isEmpty() ? "The file held nothing to import."
                                : "M\u00f2rag Games 2/7/2026: 0 competitors, 0 events, 0 marks imported.");
    }
}

void TestRoundTrip::results_equal_after_import_elsewhere()
{
    TestDataFolder source;
    Connection from;
    from.open();
    const short comp = Sample_Competition(from, 200);
    const QString expected = Tally_And_Read(from, comp);
    QVERIFY(expected.count(';') > 300);

    // Written through the screen, as the operator does it.
    QString backupSaid;
    {
        FrmBackup backup;
        backup.LstComp_Click(backup.LstComp->item(0));
        QCOMPARE(backup.txt_filename->text(), QString("St Andrew's Highland Games 12/07/2026"));
        Dialogs::clearRecords();
        backup.CmdBackup->click();
        backupSaid = Dialogs::lastRecord().text;
    }
    const QString written = source.file("Backup/St Andrew's Highland Games 12072026.dmp");
    QVERIFY(QFile::exists(written));

    TestDataFolder target;
    QDir(target.path()).mkdir("Backup");
    QVERIFY(QFile::copy(written, target.file("Backup/games.dmp")) && QFile::copy(written, target.file("Backup/LOUD.DMP")));
    Connection to;
    to.open();
    to.execute("INSERT INTO competitions(competition_name, competition_date) VALUES ('Other Games', '1/1/2026')");
    FrmRestore restore;
    QCOMPARE(restore.lstFiles->count(), 1);  // an extension in capitals is not listed
    QCOMPARE(restore.lstFiles->currentItem()->text(), QString("games"));
    // A folder typed in full is listed on Enter; the browser's title has no "&".
    restore.lstFiles->clear();
    QTest::keyClick(restore.txtfile, Qt::Key_Return);
    Dialogs::queueText(QString());
    restore.CmdBrowse->click();
    QCOMPARE(Dialogs::lastRecord().text + QString::number(restore.lstFiles->count()), "Select a restore directory:1");
    // Nothing was chosen in this fresh data folder: the competition read becomes current.
    Current_Competition_Id = 0;
    Current_Competition_Name.clear();
    Dialogs::clearRecords();
    restore.CmdRestore->click();
    const QString held = "St Andrew's Highland Games 12/07/2026: 200 competitors, 6 events, " + QLocale(QLocale::English)
        .toString(Rows(from, "SELECT (SELECT count(*) FROM judges_results) + (SELECT count(*) FROM comp_judges_results)").toInt());
    QCOMPARE(Dialogs::texts() << backupSaid, QStringList({held + " marks imported.", held + " marks exported to " + written + "."}));
    const short imported = Current_Competition_Id;
    QCOMPARE(imported, short(2));
    QCOMPARE(Current_Competition_Name, QString("St Andrew's Highland Games"));
    QCOMPARE(Rows(to, "SELECT count(*), count(address1), count(nullif(notes, '')), sum(fee) FROM competitors WHERE competition_id = 2"),
             QString("200|200|180|2250"));
    QCOMPARE(Tally_And_Read(to, imported), expected);

    // Again with Yes: still one competition of that name, with the same results. Another competition's
    // trophy keeps the new report ids clear of the orphans of the second report.
    to.execute("INSERT INTO custom_reports(competition_id, name) VALUES (1, 'Other Trophy')");
    Dialogs::queueAnswer(vbYes);
    restore.CmdRestore->click();
    QCOMPARE(Dialogs::texts().size(), 3);
    QCOMPARE(Rows(to, "SELECT count(*) FROM custom_reports_groups WHERE id NOT IN (SELECT id FROM custom_reports)"),
             QString("1"));
    QCOMPARE(Rows(to, "SELECT count(*) FROM competitions"), QString("2"));
    QCOMPARE(Tally_And_Read(to, imported), expected);
}

QTEST_MAIN(TestRoundTrip)
#include "test_roundtrip.moc"
