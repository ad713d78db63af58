#include "setup/frmCategories.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using Fixture::Count;

class TestCategoriesScreen : public QObject
{
    Q_OBJECT
private slots:
    void opens_on_the_first_category_greyed();
    void adds_removes_and_moves_dances();
    void new_and_edited_categories();
    void delete_asks_first();
};

namespace {

template <class T> T *find(QWidget *w, const char *name)
{
    T *c = w->findChild<T *>(QLatin1String(name));
    if (!c)
        qFatal("control %s not found", name);
    return c;
}

QStringList texts(QListWidget *l)
{
    QStringList out;
    for (int i = 0; i < l->count(); ++i)
        out << l->item(i)->text();
    return out;
}

void doubleClick(QListWidget *l, int row)
{
    l->setCurrentRow(row);
    l->scrollToItem(l->item(row));
    // A double click is a press followed by the double-click event.
    const QPoint at = l->visualItemRect(l->item(row)).center();
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(l->viewport(), Qt::LeftButton, {}, at);
}

void choose(QListWidget *sections, const QString &name)
{
    const auto found = sections->findItems(name, Qt::MatchExactly);
    QVERIFY(!found.isEmpty());
    QTest::mouseClick(sections->viewport(), Qt::LeftButton, {}, sections->visualItemRect(found.first()).center());
}

QString orders(Connection &c, const QString &code)
{
    QStringList out;
    RowSet rs = c.query(QString("SELECT dance_id || '=' || orderby FROM category_dances WHERE competition_id=%1 AND "
                                "category_id='%2' ORDER BY dance_id").arg(Current_Competition_Id).arg(code));
    for (; !rs.eof(); rs.next())
        out << rs.value(0).toString();
    return out.join(' ');
}

} // namespace

void TestCategoriesScreen::opens_on_the_first_category_greyed()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c);
    frmCategories f;
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    auto *sections = find<QListWidget>(&f, "LstSections");
    QCOMPARE(texts(sections), QStringList({"Championship", "Highland", "Premiership", "Primary Dances"}));
    QCOMPARE(sections->currentRow(), 0);
    auto *list1 = find<QListWidget>(&f, "List1");
    auto *list2 = find<QListWidget>(&f, "List2");
    QCOMPARE(texts(list2), QStringList({"Fling", "Swords", "Seann Truibhas", "Reel"}));
    QCOMPARE(list1->count(), 13);
    QVERIFY(!list1->isEnabled());
    QVERIFY(!list2->isEnabled());
    QVERIFY(!find<QPushButton>(&f, "cmdDel")->isEnabled());
    QVERIFY(!find<QPushButton>(&f, "CmdEdit")->isEnabled());
    QVERIFY(find<QPushButton>(&f, "CmdNew")->isEnabled());
    QVERIFY(!find<QGroupBox>(&f, "FrmEdit")->isVisible());

    choose(sections, "Primary Dances");
    QVERIFY(list1->isEnabled());
    QVERIFY(find<QPushButton>(&f, "cmdDel")->isEnabled());
    QCOMPARE(texts(list2), QStringList({"Pas de Basque", "Pas de Basque and High Cuts", "Fling", "Swords"}));
    QCOMPARE(list1->item(0)->text(), QString("Special Fling"));  // highest id first
    choose(sections, "Highland");
    QVERIFY(!list2->isEnabled());
    QVERIFY(!find<QPushButton>(&f, "CmdEdit")->isEnabled());
}

void TestCategoriesScreen::adds_removes_and_moves_dances()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c);
    frmCategories f;
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    auto *sections = find<QListWidget>(&f, "LstSections");
    auto *list1 = find<QListWidget>(&f, "List1");
    auto *list2 = find<QListWidget>(&f, "List2");
    auto *up = find<QPushButton>(&f, "cmd_up");
    auto *down = find<QPushButton>(&f, "cmd_down");
    choose(sections, "Premiership");
    QCOMPARE(list2->count(), 0);
    QCOMPARE(list1->count(), 17);

    // Fling, Swords, Seann Truibhas, Reel in: ids 1..4 at the bottom of the list.
    for (const char *name : {"Fling", "Swords", "Seann Truibhas", "Reel"})
        doubleClick(list1, list1->row(list1->findItems(name, Qt::MatchExactly).first()));
    QCOMPARE(texts(list2), QStringList({"Fling", "Swords", "Seann Truibhas", "Reel"}));
    QCOMPARE(list1->count(), 13);
    QCOMPARE(orders(c, "PS"), QString("1=0 2=1 3=2 4=3"));

    // Nothing selected: up does nothing.
    list2->setCurrentRow(-1);
    up->click();
    QCOMPARE(orders(c, "PS"), QString("1=0 2=1 3=2 4=3"));

    list2->setCurrentRow(2);
    up->click();
    QCOMPARE(texts(list2), QStringList({"Fling", "Seann Truibhas", "Swords", "Reel"}));
    QCOMPARE(list2->currentRow(), 1);
    QCOMPARE(orders(c, "PS"), QString("1=0 2=2 3=1 4=3"));
    up->click();
    QCOMPARE(list2->currentRow(), 0);
    QCOMPARE(texts(list2).first(), QString("Seann Truibhas"));
    up->click();  // already at the top
    QCOMPARE(orders(c, "PS"), QString("1=1 2=2 3=0 4=3"));

    list2->setCurrentRow(3);
    down->click();  // already at the bottom
    list2->setCurrentRow(1);
    down->click();
    QCOMPARE(texts(list2), QStringList({"Seann Truibhas", "Swords", "Fling", "Reel"}));
    QCOMPARE(list2->currentRow(), 2);
    QCOMPARE(orders(c, "PS"), QString("1=2 2=1 3=0 4=3"));

    // Removing leaves the gap; the dance goes back to the available list.
    doubleClick(list2, 1);
    QCOMPARE(texts(list2), QStringList({"Seann Truibhas", "Fling", "Reel"}));
    QCOMPARE(list1->item(list1->count() - 1)->text(), QString("Swords"));
    QCOMPARE(orders(c, "PS"), QString("1=2 3=0 4=3"));

    // Read again, the list follows the stored order.
    choose(sections, "Highland");
    choose(sections, "Premiership");
    QCOMPARE(texts(list2), QStringList({"Seann Truibhas", "Fling", "Reel"}));
    QVERIFY(Dialogs::records().isEmpty());
}

void TestCategoriesScreen::new_and_edited_categories()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c);
    frmCategories f;
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    auto *sections = find<QListWidget>(&f, "LstSections");
    auto *panel = find<QGroupBox>(&f, "FrmEdit");
    auto *id = find<QLineEdit>(&f, "TxtID");
    auto *name = find<QLineEdit>(&f, "TxtSection");
    auto *save = find<QPushButton>(&f, "CmdSave");

    find<QPushButton>(&f, "CmdNew")->click();
    QVERIFY(panel->isVisible());
    QTest::keyClicks(id, "ps");
    QTest::keyClicks(name, "Premier Dances");
    save->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Category ID already used! Please enter another"));
    QCOMPARE(Dialogs::lastRecord().title, App_Title);
    QVERIFY(panel->isVisible());
    QCOMPARE(Count(c, "categories"), 4);

    id->setText("");
    save->click();  // an empty code counts as used
    QCOMPARE(Dialogs::records().size(), 2);

    id->setText("pnd");
    save->click();
    QVERIFY(!panel->isVisible());
    QCOMPARE(Count(c, "categories", "category_id = 'PND' AND category = 'Premier Dances'"), 1);
    QCOMPARE(sections->currentItem()->text(), QString("Premier Dances"));
    QVERIFY(find<QListWidget>(&f, "List1")->isEnabled());

    // The edit renames and recodes; the dances stay under the old code.
    auto *list1 = find<QListWidget>(&f, "List1");
    doubleClick(list1, 0);
    find<QPushButton>(&f, "CmdEdit")->click();
    QCOMPARE(id->text(), QString("PND"));
    QCOMPARE(name->text(), QString("Premier Dances"));
    id->setText("PND"); // its own code is not a clash
    name->setText("Premier National");
    save->click();
    QCOMPARE(Count(c, "categories", "category_id = 'PND' AND category = 'Premier National'"), 1);
    find<QPushButton>(&f, "CmdEdit")->click();
    id->setText("pn2");
    save->click();
    QCOMPARE(Count(c, "categories", "category_id = 'PN2'"), 1);
    QCOMPARE(Count(c, "category_dances", "category_id = 'PND'"), 1);
    QCOMPARE(Count(c, "category_dances", "category_id = 'PN2'"), 0);

    // A name with a quote saves as typed.
    find<QPushButton>(&f, "CmdNew")->click();
    id->setText("X");
    name->setText("Dancer's");
    save->click();
    QCOMPARE(Count(c, "categories", "category = 'Dancer''s'"), 1);
}

void TestCategoriesScreen::delete_asks_first()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c);
    const short other = Fixture::Competition(c, "Other", "x");
    frmCategories f;
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    auto *sections = find<QListWidget>(&f, "LstSections");
    choose(sections, "Primary Dances");
    Dialogs::queueAnswer(vbNo);
    find<QPushButton>(&f, "cmdDel")->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Are you sure you want to delete this category?"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    QCOMPARE(Count(c, "categories", QString("competition_id=%1").arg(Current_Competition_Id)), 4);
    QCOMPARE(sections->currentRow(), 0);  // read anew all the same

    choose(sections, "Primary Dances");
    Dialogs::queueAnswer(vbYes);
    find<QPushButton>(&f, "cmdDel")->click();
    QCOMPARE(texts(sections), QStringList({"Championship", "Highland", "Premiership"}));
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(Current_Competition_Id)), 0);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(other)), 4);
}

QTEST_MAIN(TestCategoriesScreen)
#include "test_setup_categories_screen.moc"
