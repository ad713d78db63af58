#pragma once
#include <QList>
#include <QMap>
#include <QRandomGenerator>
#include <QString>
#include <functional>

class Connection;
class QVariant;

// The letter hidden in names on the results pages: white on white, it can't be
// seen, but a copy of the text carries it. Seeded from the clock; tests seed it
// to compare pages whole.
class Letter_Source
{
public:
    Letter_Source();
    void seed(quint32 value) { m_rng.seed(value); }
    QString hidden();                              // one tag with a fresh letter
    QString Hide_Blanks(const QString &name);      // each blank becomes one letter, the same for the name

private:
    QRandomGenerator m_rng;
};

// One row of the event list: code, display name, category.
struct Site_Event
{
    QString groupId;
    QString name;
    QString category;
};

// What every page of a site reads: the competition, its judges and dances by id,
// and the letters.
struct Site_Source
{
    Connection &conn;
    short compId = 0;
    QString compName;
    QString compDate;
    Letter_Source &letters;
    QMap<int, QString> judges;
    QMap<int, QString> dances;

    QString id() const { return QString::number(compId); }
    // A judge or dance missing from the list is a fault, which abandons the page.
    QString judge(const QVariant &id) const;
    QString dance(const QVariant &id) const;
};

// Fills the judge and dance lists of the source.
void Load_Site_Lists(Site_Source &src);
// The events of the competition in the order of the list query.
QList<Site_Event> Load_Site_Events(Connection &conn, const QString &listSql);

// A stored value as the pages show it: NULL as empty, whole numbers without a fraction.
QString Cell(const QVariant &v);
// Writes one page in one write, Windows-1252, bytes as built. A fault when the
// folder isn't there or the file can't be written.
void Write_Page(const QString &path, const QString &text);
// Makes one folder (not its parents) unless it exists; a fault when it can't.
void Make_Folder(const QString &path);
// The folder `name` under base, found in any case, or base + name when absent.
QString Folder_In(const QString &base, const QString &name);

// A page built in its own handler: a fault abandons the page, and the run goes on.
bool Build_Page(const std::function<void()> &work);
