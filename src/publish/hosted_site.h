#pragma once
#include "site_source.h"

#include <QList>
#include <QString>
#include <functional>

// The hosted edition: default.css, the results and competitors indexes, and for
// each event its results page, its dancers page and, for a Championship, its
// statistics page.
namespace Hosted_Site {

QString Style_Sheet();

// The event's age group and title, as the headings show them.
struct Titles
{
    QString ageGroup;
    QString title;
};
Titles Event_Titles(const Site_Source &src, const Site_Event &ev);

// The two indexes, built together a row of each for every event.
struct Indexes
{
    QString results;
    QString competitors;
};
Indexes Index_Begin(const Site_Source &src);
void Index_Add(const Site_Source &src, const Site_Event &ev, Indexes &pages);
void Index_End(Indexes &pages);

QString Dancers_Page(const Site_Source &src, const Site_Event &ev);
QString Results_Page(const Site_Source &src, const Site_Event &ev);
QString Statistics_Page(const Site_Source &src, const Site_Event &ev);

// Writes the site into Html and the competition's folder under dataDir (ends in
// '/'). A page that fails is left out; a fault of the folder, the stylesheet or
// the indexes ends the run. Returns the Html folder.
QString Run(Site_Source &src, const QString &dataDir, const QList<Site_Event> &selected,
            const std::function<void()> &step = {});

} // namespace Hosted_Site
