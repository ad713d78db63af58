#pragma once
#include <QList>
#include <QString>
#include <QVariant>
#include <cmath>

// How many rows of a list sorted best first a "TOP n" keeps: the first n and
// every further row level with the n-th.
inline int Top_Count(const QList<double> &sortedBestFirst, int n)
{
    int keep = qMin(n, static_cast<int>(sortedBestFirst.size()));
    while (keep > 0 && keep < sortedBestFirst.size() && sortedBestFirst.at(keep) == sortedBestFirst.at(n - 1))
        ++keep;
    return keep;
}

// A points total as the sheets print it: whole numbers without a decimal point.
inline QString Total_Text(const QVariant &v)
{
    const double d = v.toDouble();
    return d == std::floor(d) ? QString::number(static_cast<qint64>(d)) : QString::number(d);
}
