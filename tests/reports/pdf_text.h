#pragma once
// The text of a rendered PDF as pdftotext lays it out, one string per page.
#include <QProcess>
#include <QString>
#include <QStringList>

inline QStringList Pdf_Pages(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    p.waitForFinished(60000);
    QStringList pages = QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\f'));
    if (!pages.isEmpty() && pages.last().trimmed().isEmpty())
        pages.removeLast();
    return pages;
}

// The page's lines with runs of blanks made one, for order checks.
inline QStringList Pdf_Lines(const QString &page)
{
    QStringList out;
    for (QString line : page.split(QLatin1Char('\n'))) {
        line = line.simplified();
        if (!line.isEmpty())
            out << line;
    }
    return out;
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
