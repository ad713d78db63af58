// Any bytes as an entries file: the reader, the preview rows and the check
// query must neither fault nor let a quote out of its string.
#include "exchange/online/entries_file.h"

#include <cstdint>
#include <cstdlib>

namespace {

// Quotes outside doubled pairs: the check query has exactly three strings.
int Lone_Quotes(const QString &sql)
{
    int lone = 0;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        if (sql[i] != QLatin1Char('\''))
            continue;
        if (i + 1 < sql.size() && sql[i + 1] == QLatin1Char('\'') && lone % 2 == 1) {
            ++i;   // a doubled quote inside a string
            continue;
        }
        ++lone;
    }
    return lone;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const Entries_File::Contents c = Entries_File::Read(bytes);
    if (c.highestIndex < 1 || c.lines.size() != qMax(0, c.highestIndex - 2))
        std::abort();
    for (const QStringList &fields : c.lines) {
        if (fields.size() < Entries_File::Fields)
            continue;
        const QStringList row = Entries_File::Preview_Row(fields);
        if (row.size() != Entries_File::Columns)
            std::abort();
        for (const QString &cell : row)
            if (cell.contains(QLatin1Char('\'')))
                std::abort();
        if (Lone_Quotes(Entries_File::Check_Sql(1, fields)) != 6)
            std::abort();
    }
    return 0;
}
