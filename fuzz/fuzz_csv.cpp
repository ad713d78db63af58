// The delimited file reader: lists built from the file, then the load, against a real database.
#include "fuzz_env.h"
#include "exchange/csv_import.h"

#include "core/codec.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    Connection &conn = Fuzz_Connection();
    // The first byte chooses the delimiter and the two heading flags.
    const QString delims[] = {QStringLiteral(","), QStringLiteral("\t"), QStringLiteral(";"), QStringLiteral("||")};
    const QString delim = delims[data[0] & 3];
    const bool header = data[0] & 4, byHeadings = data[0] & 8;
    const QString text = Decode_Text(QByteArray(reinterpret_cast<const char *>(data + 1), int(size - 1)));
    const Csv_File file = Read_Csv(text, delim);
    const Csv_Lists lists = Build_Csv_Lists(file, delim, header, byHeadings);
    QList<int> map;
    for (const Csv_Item &i : lists.placed.isEmpty() ? lists.unplaced : lists.placed)
        map << i.index;
    In_Rolled_Back(conn, [&] { Import_Csv(conn, 1, file, delim, header, map); });
    return 0;
}
