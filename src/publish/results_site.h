#pragma once
#include "site_source.h"

#include <QList>
#include <QString>
#include <functional>

// The plain results website: main.css, index.htm and one page an event.
namespace Results_Site {

// The competition's name without the characters a folder name can't hold.
QString Folder_Name(const QString &competitionName);
QString Style_Sheet();
// The publisher's link that closes the index and every page.
QString Publisher_Link();

QString Index_Head(const Site_Source &src);
// One row of the index, with the event's winners.
QString Index_Row(const Site_Source &src, const Site_Event &ev);
QString Index_Foot();
QString Event_Page(const Site_Source &src, const Site_Event &ev);

// Creates Html and the cleaned folder under location (ends in '/'), then writes
// the site into the folder named as the competition stands. An event page that
// fails is left out; a fault of main.css or the index ends the run. step is
// called once an event. Returns the folder the files went to.
QString Run(Site_Source &src, const QString &location, const QList<Site_Event> &selected,
            const std::function<void()> &step = {});

} // namespace Results_Site
