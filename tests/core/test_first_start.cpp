#include "core/db.h"
#include "core/globals.h"
#include "core/prepared_file.h"
#include "support/test_env.h"

#include <QFile>
#include <QtTest>

// The first start of an installed program lays the prepared database only into
// a folder that has never held one.
class TestFirstStart : public QObject
{
    Q_OBJECT
private slots:
    void laidOnlyIntoAnEmptyFolder_data()
    {
        QTest::addColumn<QString>("present");
        QTest::addColumn<bool>("laid");
        QTest::newRow("empty folder") << QString() << true;
        QTest::newRow("operator's file") << "tallier.mdb" << false;
        QTest::newRow("only the backup") << "Tallier.bak" << false;
        QTest::newRow("a copy in another case") << "TALLIER.MDB" << false;
        QTest::newRow("an unfinished compaction") << "TallierTemp.mdb" << false;
    }
    void laidOnlyIntoAnEmptyFolder()
    {
        QFETCH(QString, present);
        QFETCH(bool, laid);
        TestDataFolder folder(false);
        if (!present.isEmpty()) {
            QFile f(folder.file(present));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("the operator's data");
        }
        QCOMPARE(Lay_Prepared_Database(Prepared_Database_Path()), laid);
        if (laid) {
            Connection c;
            c.open(folder.file(DB_FILE), Db_Password);
            QCOMPARE(c.scalar(QStringLiteral("SELECT db_version FROM db_info")).toString(), QStringLiteral("4.6"));
            c.execute(QStringLiteral("INSERT INTO competitions(competition_name) VALUES ('Cowal')"));
        } else {
            QFile f(folder.file(present));
            QVERIFY(f.open(QIODevice::ReadOnly));
            QCOMPARE(f.readAll(), QByteArray("the operator's data"));
        }
    }
};

QTEST_GUILESS_MAIN(TestFirstStart)
#include "test_first_start.moc"
