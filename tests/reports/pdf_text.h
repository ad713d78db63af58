#pragma once
// The text of a rendered PDF as pdftotext -layout lays it out, one string per
// page, each line with its runs of blanks made one and empty lines dropped.
#include <QList>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

inline QStringList Pdf_Pages(const QString &pdf)
{
    QProcess p;
    p.start("pdftotext", {"-layout", pdf, "-"});
    p.waitForFinished(60000);
    QStringList pages = QString::fromUtf8(p.readAllStandardOutput()).split('\f');
    pages.removeLast();  // the text ends with a page break
    for (QString &page : pages) {
        QStringList lines;
        for (const QString &line : page.split('\n'))
            if (!line.simplified().isEmpty())
                lines << line.simplified();
        page = lines.join('\n');
    }
    return pages;
}

// True when the texts occur in this order in the whole text.
inline bool In_Order(const QString &text, const QStringList &parts)
{
    qsizetype at = 0;
    for (const QString &part : parts) {
        at = text.indexOf(part, at);
        if (at < 0)
            return false;
        at += part.size();
    }
    return true;
}

// Reads a list sheet back: every page must hold the heads in order and its
// "Page n of m"; each line matching row (whose captures all name the same
// number) counts once for that number. Gives the counts by number.
inline QList<int> Count_Rows(const QString &pdf, const QStringList &heads, const QString &row, int most)
{
    QList<int> seen(most + 1, 0);
    const QStringList pages = Pdf_Pages(pdf);
    const QRegularExpression re(row);
    for (int p = 0; p < pages.size(); ++p) {
        if (!In_Order(pages.at(p), heads + QStringList{QString("Page %1 of %2").arg(p + 1).arg(pages.size())}))
            return {};
        for (const QString &line : pages.at(p).split('\n'))
            if (const auto m = re.match(line); m.hasMatch()) {
                for (int c = 2; c <= m.lastCapturedIndex(); ++c)
                    if (m.captured(c) != m.captured(1))
                        return {};
                ++seen[m.captured(1).toInt()];
            }
    }
    return seen;
}
