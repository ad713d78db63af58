#pragma once
// The report engine: every printed sheet of the program.
//
// How a report is filled
// ----------------------
// A design is a data file compiled in as a resource (designs/<name>.json). It
// has five bands: Section4 report header (once, at the top), Section2 page
// header, Section1 detail (one copy per data row; the line-up sheet only),
// Section5 report footer (once, after the rest) and Section3 page footer (at
// the bottom of every page). Bands hold named labels, lines, an image and
// fields bound to a column of the rows.
//
//   auto report = Report::Load(QStringLiteral("DataReport6"));
//   report->Controls("Section4", "cname").Caption = Current_Competition_Name;
//   report->Controls("Section2", "compid").Caption = numbers;  // lines joined by "\r\n"
//   report->Controls("Section3", "Footer").Caption = Footer_Text();
//   Show_Report(report);                    // preview (report_output.h)
//   report->Render_Pdf(path);               // or a PDF file, in one call
//
// Names are found case-insensitively; an unknown band or control name is a
// fault (AppError). A label grows to hold its whole text: long lines wrap
// inside the label, and whatever lies below is pushed down. Labels given the
// same "rows" key in the design are parallel columns (numbers, names, towns):
// line n of each stands beside line n of the others, on every page. Text that
// does not fit the page goes on over the next pages, under the bands the
// design marks "repeat" and above the page footer; nothing is dropped.
#include "core/db.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <memory>

class QPagedPaintDevice;

struct Report_Control
{
    enum Kind { Label, Line, Image, Field, Page_Number };

    QString Name;
    QString Caption;           // a label's text; lines joined by CR LF or LF
    bool Visible = true;

    Kind kind = Label;
    double x = 0, y = 0, w = 0, h = 0;   // mm from the band's top left; a line runs (x,y) to (x+w,y+h)
    QString family = QStringLiteral("Arial");
    double size = 10;          // points
    bool bold = false;
    bool italic = false;
    int align = 0;             // Qt::Alignment of the text
    bool shrink = false;       // an empty label takes no height
    QString rows;              // parallel-column key
    QString column;            // a field's column
    double pen = 0.3;          // a line's width in mm
    QImage image;
};

struct Report_Band
{
    QString Name;
    double height = 0;         // mm, as designed
    bool repeat = false;       // drawn again at the top of every following page
    QList<Report_Control> controls;
};

class Report
{
public:
    // The design of that name from the resources; a fault when there is none.
    static std::shared_ptr<Report> Load(const QString &name);
    // A design from its JSON text (the designs and the tests use this).
    static std::shared_ptr<Report> From_Json(const QByteArray &json, const QString &name);

    QString Name() const { return m_name; }
    QString Title() const { return m_title; }
    void Set_Title(const QString &title) { m_title = title; }

    Report_Band &Sections(const QString &band);
    const Report_Band &Sections(const QString &band) const;
    // The control of a band; a fault when the band or the name does not exist.
    Report_Control &Controls(const QString &band, const QString &name);

    // Runs a named command of the data environment as the rows of the detail
    // band; the rows it had before are dropped first.
    void Run_Command(Connection &conn, const QString &command, const QVariantList &params = {});
    void Set_Rows(const RowSet &rows) { m_rows = rows; }
    const RowSet &Rows() const { return m_rows; }

    // Lays the report out on the device and paints it; returns the pages.
    int Render(QPagedPaintDevice *device) const;
    // Writes the report as a PDF file; returns the pages. A fault when the
    // file cannot be written.
    int Render_Pdf(const QString &path) const;

    bool landscape() const { return m_landscape; }
    double margin() const { return m_margin; }
    QList<Report_Band> bands() const { return m_bands; }

private:
    QString m_name;
    QString m_title;
    bool m_landscape = false;
    double m_margin = 12;      // mm on every side
    QList<Report_Band> m_bands;
    RowSet m_rows;
};

// The page footer of every sheet: "Printed: ", today's date and time in the
// short local form, " from " and this machine's name.
QString Footer_Text();

// The names of the designs compiled into the program.
QStringList Report_Names();
