// The report engine: designs load with their fixed texts, names are found or
// refused, long lists run over pages without losing a line, and the preview
// saves a PDF.
#include "pdf_text.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/page_setup.h"
#include "reports/report.h"
#include "reports/report_output.h"

#include <QAction>
#include <QApplication>
#include <QPrintPreviewDialog>
#include <QRegularExpression>
#include <QtTest>

class TestReportEngine : public QObject
{
    Q_OBJECT

private slots:
    void designs_data()
    {
        for (const char *column : {"report", "title", "band", "control", "caption"})
            QTest::addColumn<QString>(column);
        QTest::newRow("1") << "DataReport1" << "SOBHD Championship Report" << "Section4" << "Label3" << "ORGANISERS'/JUDGES' CHAMPIONSHIP REPORT";
        QTest::newRow("2") << "DataReport2" << "Judges Results" << "Section2" << "Label6" << "Sean Truibhas";
        QTest::newRow("3") << "DataReport3" << "Competition report" << "Section5" << "Label0" << "Overall Results";
        QTest::newRow("4") << "DataReport4" << "Championship Report" << "Section2" << "Label10" << "No Judges Places";
        QTest::newRow("5") << "DataReport5" << "Line up sheet" << "Section2" << "Label6" << "Register";
        QTest::newRow("6") << "DataReport6" << "Call-Back Sheet" << "Section4" << "Label3" << "Call-Back Sheet";
        QTest::newRow("7") << "DataReport7" << "Result Checker" << "Section2" << "Label5" << "Remote Computer";
        QTest::newRow("8") << "DataReport8" << "DataReport8" << "Section2" << "Label3" << "Dance Points";
        QTest::newRow("9") << "DataReport9" << "Teachers Trophy" << "Section4" << "Label1" << "Teachers Trophy Report";
        QTest::newRow("12") << "DataReport12" << "Call-Back Sheet" << "Section4" << "Label3" << "Top 10 Dancers";
    }

    // Each design loads with its title and fixed text, refuses names it does
    // not have, and renders with every label filled by its name and a mark.
    void designs()
    {
        QFETCH(QString, report);
        QFETCH(QString, title);
        QFETCH(QString, band);
        QFETCH(QString, control);
        QFETCH(QString, caption);
        TestDataFolder env;
        QVERIFY(Report_Names().contains(report));
        QVERIFY_THROWS_EXCEPTION(AppError, Report::Load(report + "0"));
        auto r = Report::Load(report);
        QCOMPARE(r->Title(), title);
        QCOMPARE(r->Controls(band.toLower(), control.toUpper()).Caption, caption);  // names in any case
        QVERIFY_THROWS_EXCEPTION(AppError, r->Controls(band, control + "x"));
        QVERIFY_THROWS_EXCEPTION(AppError, r->Controls(band == "Section4" ? "Section2" : "Section4", control));
        QStringList filled;
        for (const Report_Band &b : r->bands())
            for (const Report_Control &c : b.controls)
                if (c.kind == Report_Control::Label && c.Caption.isEmpty()) {
                    filled << QString("#%1").arg(filled.size() + 1);
                    r->Controls(b.Name, c.Name).Caption = c.Name + "\r\n" + filled.last();
                }
        QVERIFY(r->Render_Pdf(env.file("sheet.pdf")) >= 1);
        const QString text = Pdf_Pages(env.file("sheet.pdf")).join('\n');
        QVERIFY2(text.contains(caption), qPrintable(text));
        for (const QString &mark : filled)
            QVERIFY2(text.contains(QRegularExpression(mark + "\\b")), qPrintable(mark));
    }

    // The paper and margins chosen under Page Setup reach every sheet; a
    // landscape sheet stays landscape.
    void chosen_page_is_used()
    {
        TestDataFolder env;
        Choose_Page_Layout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(25, 25, 25, 25),
                                       QPageLayout::Millimeter));
        for (const char *name : {"DataReport6", "DataReport2"}) {
            QVERIFY(Report::Load(name)->Render_Pdf(env.file("sheet.pdf")) >= 1);
            QProcess info;
            info.start("pdfinfo", {env.file("sheet.pdf")});
            info.waitForFinished();
            const QString out = info.readAllStandardOutput();
            QVERIFY2(out.contains(QString(name) == "DataReport2" ? "792 x 612 pts" : "612 x 792 pts (letter)"), qPrintable(out));
        }
        Choose_Page_Layout(QPageLayout());
    }

    // 150 rows of three parallel columns, one name far too long for its
    // column: every row on one line of some page, under the header, once.
    void long_columns_run_over_pages()
    {
        TestDataFolder env;
        auto r = Report::Load("DataReport6");
        r->Controls("Section4", "aname").Caption = "Under 12 Highland";
        QStringList ids, names, towns;
        for (int i = 1; i <= 150; ++i) {
            ids << QString::number(i);
            names << QString(i == 7 ? "Dancer%1 Mhairi-Anne Featherstonehaugh-Cholmondeley of Auchtermuchty"
                                    : "Dancer%1 Surname").arg(i);
            towns << QString("Town%1").arg(i);
        }
        r->Controls("Section2", "compid").Caption = ids.join("\r\n");
        r->Controls("Section2", "compname").Caption = names.join("\r\n");
        r->Controls("Section2", "comptown").Caption = towns.join("\r\n");
        QVERIFY(r->Render_Pdf(env.file("long.pdf")) >= 3);
        const QList<int> seen = Count_Rows(env.file("long.pdf"), {"Under 12 Highland", "Call-Back Sheet"},
                                           "^(\\d+) Dancer(\\d+) .*Town(\\d+)$", 150);
        QCOMPARE(seen.count(1), 150);
        // The long name wraps inside its column: all of it is there.
        QVERIFY(Pdf_Pages(env.file("long.pdf")).join("").simplified().contains("of Auchtermuchty"));
    }

    // The preview offers "Save as PDF...".
    void preview_saves_pdf()
    {
        TestDataFolder env;
        auto r = Report::Load("DataReport12");
        r->Controls("Section2", "compid").Caption = "101\r\n102";
        QPrintPreviewDialog *preview = Show_Report(r);
        auto *save = preview->findChild<QAction *>("actSaveAsPdf");
        QCOMPARE(save->text(), QString("Save as PDF..."));
        Dialogs::queueText(env.file("saved.pdf"));
        save->trigger();
        QVERIFY(In_Order(Pdf_Pages(env.file("saved.pdf")).join(""), {"Top 10 Dancers", "101", "102"}));
        preview->close();
    }
};

QTEST_MAIN(TestReportEngine)
#include "test_report_engine.moc"
