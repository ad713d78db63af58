// Any bytes as the other computer's compare file: reading and comparing must
// neither fault nor report a side it could not read.
#include "crosscheck/compare_run.h"
#include "core/codec.h"

#include <cstdint>
#include <cstdlib>

namespace {

bool Readable(const Compare_Side &side, const QHash<int, QString> &dances)
{
    return side.dance.isEmpty() || dances.key(side.dance, -1) >= 0;
}

void Check(const Compare_Outcome &o, const QHash<int, QString> &dances)
{
    if (o.kind == Compare_Outcome::Differ && (!Readable(o.here, dances) || !Readable(o.remote, dances)))
        std::abort();
    if (o.kind != Compare_Outcome::Differ && o.lineType != 0)
        std::abort();
    if (!Check_Text(QStringLiteral("This Computer"), o, false).startsWith(QLatin1String("This Computer\r\nDance: ")))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QHash<int, QString> dances = {{1, QStringLiteral("Highland Fling")}, {2, QStringLiteral("Sword Dance")}};
    static const QStringList own = Split_Compare_Text(QByteArray("2\t12\t1\t1\t1\r\n2\t17\t2\t1\t1\r\n2\t12\t1\t1\t2\r\n"
                                                                 "1\t12\t1  \t1\r\n1\t17\t2 =\t1\r\n1\t20\t3  \t2\r\n"));
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QStringList remote = Split_Compare_Text(bytes);
    if (remote.join(QStringLiteral("\r\n")) != Decode_Text(bytes))
        std::abort();
    // A file always agrees with itself.
    if (Compare_Results(remote, remote, dances).kind != Compare_Outcome::Match)
        std::abort();
    Check(Compare_Results(own, remote, dances), dances);
    Check(Compare_Results(remote, own, dances), dances);
    return 0;
}
