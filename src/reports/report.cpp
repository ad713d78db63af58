#include "report.h"
#include "data_environment.h"
#include "core/contacts.h"
#include "core/errors.h"
#include "core/routines.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QPdfWriter>

namespace {

const QStringList Band_Names = {QStringLiteral("Section4"), QStringLiteral("Section2"), QStringLiteral("Section1"),
                                QStringLiteral("Section3"), QStringLiteral("Section5")};

int Alignment_Of(const QString &text)
{
    if (text == QLatin1String("center"))
        return Qt::AlignHCenter;
    if (text == QLatin1String("right"))
        return Qt::AlignRight;
    return Qt::AlignLeft;
}

Report_Control::Kind Kind_Of(const QString &text)
{
    if (text == QLatin1String("line"))
        return Report_Control::Line;
    if (text == QLatin1String("image"))
        return Report_Control::Image;
    if (text == QLatin1String("field"))
        return Report_Control::Field;
    if (text == QLatin1String("page"))
        return Report_Control::Page_Number;
    return Report_Control::Label;
}

Report_Control Control_From(const QJsonObject &o, const QJsonObject &defaults)
{
    auto get = [&](const char *key) { return o.contains(QLatin1String(key)) ? o.value(QLatin1String(key))
                                                                           : defaults.value(QLatin1String(key)); };
    Report_Control c;
    c.Name = o.value(QStringLiteral("name")).toString();
    c.kind = Kind_Of(o.value(QStringLiteral("kind")).toString());
    c.Caption = o.value(QStringLiteral("caption")).toString();
    c.Caption.replace(QLatin1String("${PUBLISHER_NOTICE}"), QString::fromUtf8(Contacts::Publisher_Notice));
    c.Visible = o.value(QStringLiteral("visible")).toBool(true);
    c.x = o.value(QStringLiteral("x")).toDouble();
    c.y = o.value(QStringLiteral("y")).toDouble();
    c.w = o.value(QStringLiteral("w")).toDouble();
    c.h = o.value(QStringLiteral("h")).toDouble();
    c.family = get("font").toString(QStringLiteral("Arial"));
    c.size = get("size").toDouble(10);
    c.bold = get("bold").toBool(false);
    c.italic = get("italic").toBool(false);
    c.align = Alignment_Of(o.value(QStringLiteral("align")).toString());
    c.shrink = o.value(QStringLiteral("shrink")).toBool(false);
    c.rows = o.value(QStringLiteral("rows")).toString();
    c.column = o.value(QStringLiteral("column")).toString();
    c.pen = o.value(QStringLiteral("pen")).toDouble(0.3);
    if (c.kind == Report_Control::Image)
        c.image = QImage(QStringLiteral(":/reports/") + o.value(QStringLiteral("image")).toString());
    return c;
}

} // namespace

std::shared_ptr<Report> Report::Load(const QString &name)
{
    QFile file(QStringLiteral(":/reports/") + name + QStringLiteral(".json"));
    if (!file.open(QIODevice::ReadOnly))
        throw AppError(QStringLiteral("Report not found: ") + name);
    return From_Json(file.readAll(), name);
}

std::shared_ptr<Report> Report::From_Json(const QByteArray &json, const QString &name)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (doc.isNull())
        throw AppError(QStringLiteral("Report design ") + name + QStringLiteral(" is damaged: ") + error.errorString());
    const QJsonObject root = doc.object();
    auto report = std::make_shared<Report>();
    report->m_name = name;
    report->m_title = root.value(QStringLiteral("title")).toString(name);
    report->m_landscape = root.value(QStringLiteral("landscape")).toBool(false);
    report->m_margin = root.value(QStringLiteral("margin")).toDouble(12);
    const QJsonObject defaults = root.value(QStringLiteral("defaults")).toObject();
    // Every report has the five bands, in the order they are laid out.
    const QJsonObject bands = root.value(QStringLiteral("bands")).toObject();
    for (const QString &bandName : Band_Names) {
        const QJsonObject b = bands.value(bandName).toObject();
        Report_Band band;
        band.Name = bandName;
        band.height = b.value(QStringLiteral("height")).toDouble(0);
        band.repeat = b.value(QStringLiteral("repeat")).toBool(false);
        const QJsonObject bandDefaults = b.value(QStringLiteral("defaults")).toObject();
        QJsonObject merged = defaults;
        for (auto it = bandDefaults.begin(); it != bandDefaults.end(); ++it)
            merged.insert(it.key(), it.value());
        for (const QJsonValue &v : b.value(QStringLiteral("controls")).toArray())
            band.controls << Control_From(v.toObject(), merged);
        report->m_bands << band;
    }
    return report;
}

Report_Band &Report::Sections(const QString &band)
{
    return const_cast<Report_Band &>(std::as_const(*this).Sections(band));
}

const Report_Band &Report::Sections(const QString &band) const
{
    for (const Report_Band &b : m_bands)
        if (b.Name.compare(band, Qt::CaseInsensitive) == 0)
            return b;
    throw AppError(QStringLiteral("Report ") + m_name + QStringLiteral(" has no section ") + band);
}

Report_Control &Report::Controls(const QString &band, const QString &name)
{
    Report_Band &b = Sections(band);
    for (Report_Control &c : b.controls)
        if (c.Name.compare(name, Qt::CaseInsensitive) == 0)
            return c;
    throw AppError(QStringLiteral("Report ") + m_name + QStringLiteral(" has no control ") + name
                   + QStringLiteral(" in ") + b.Name);
}

void Report::Run_Command(Connection &conn, const QString &command, const QVariantList &params)
{
    m_rows = RowSet();  // a command still open is closed first
    m_rows = conn.query(Command_Sql(command), params);
}

int Report::Render_Pdf(const QString &path) const
{
    QPdfWriter writer(path);
    writer.setTitle(m_title);
    writer.setCreator(QStringLiteral("Strathmark"));
    writer.setResolution(300);
    const int pages = Render(&writer);
    if (pages == 0 || !QFile::exists(path))
        throw AppError(QStringLiteral("Unable to write ") + QDir::toNativeSeparators(path));
    return pages;
}

QString Footer_Text()
{
    return QStringLiteral("Printed: ") + QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat)
           + QStringLiteral(" from ") + Computer_Name();
}

QStringList Report_Names()
{
    QStringList names;
    for (const QString &file : QDir(QStringLiteral(":/reports")).entryList({QStringLiteral("*.json")}, QDir::Files))
        names << file.chopped(5);
    return names;
}
