#pragma once
#include "site_source.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

// The frame every hosted page shares: head, headings, bands and footer.
namespace Hosted_Frame {

QString Head(const Site_Source &src);
// The heading of a page in the class head2, left open for the winner block.
QString Heading_Open(const QString &text);
QString Heading(const QString &text);
// A table of columns under a coloured band.
QString Band_Table(const QString &band, const QStringList &columns, int span = 1);
// One row of the light rows, each value followed by a hidden letter.
QString Row(const Site_Source &src, const QStringList &cells, const QString &link = QString());
// "Go To:" with its links (text, target), the publisher's notice and the close.
QString Footer(const QList<QPair<QString, QString>> &links);

} // namespace Hosted_Frame
