#include "qr/CQrCodeGenerator.h"

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "qr/QZXing.h"
#include "qr/QrTags.h"

#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextTable>
#include <QUrl>

namespace {

constexpr int Columns = 4; // image, label, image, label
constexpr int LastImageColumn = 2;
constexpr int CellPadding = 3;
constexpr QSize CodeSize(240, 240);

QImage codeOf(const QString& text)
{
    return QZXing::encodeData(text, QZXing::EncodeQrCode, CodeSize, QZXing::CorrectionLow, false, false);
}

/** @return an address that is the label's own, whatever letters stand in it. */
QUrl imageUrl(const QString& label)
{
    return QUrl::fromEncoded(QUrl::toPercentEncoding(QStringLiteral("image_%1").arg(label)));
}

} // namespace

CQrCodeGenerator::CQrCodeGenerator(QObject* parent)
    : QObject(parent), m_document(new QTextDocument), m_cursor(new QTextCursor(m_document))
{
}

CQrCodeGenerator::~CQrCodeGenerator()
{
    delete m_cursor;
    delete m_document;
}

void CQrCodeGenerator::setImageScalePercent(int percent)
{
    // Required: the division is one of whole numbers, so that 150 percent are 100.
    const int hundreds = percent / 100;
    m_imageScale = hundreds * m_baseScale;
}

void CQrCodeGenerator::generateCarCodes(const QString& documentName, const CCarList* carlist)
{
    beginDocument(tr("Fahrzeug"), tr("QR Code"));
    for (const CCar& car : carlist->allCars())
        addCar(car, QStringLiteral("<br>"));
    writePdf(documentName);
}

void CQrCodeGenerator::generateCarCodes(const QString& documentName, const CCar& car)
{
    beginDocument(tr("Fahrzeug"), tr("QR Code"));
    addCar(car, QString());
    writePdf(documentName);
}

void CQrCodeGenerator::generateDriverCodes(const QString& documentName, const CDriverList* driverlist)
{
    beginDocument(tr("Fahrer"), tr("QR Code"));
    for (const CDriver& driver : driverlist->allDrivers())
        addDriver(driver);
    writePdf(documentName);
}

void CQrCodeGenerator::generateDriverCodes(const QString& documentName, const CDriver& driver)
{
    beginDocument(tr("Fahrer"), tr("QR Code"));
    addDriver(driver);
    writePdf(documentName);
}

void CQrCodeGenerator::writePdf(const QString& documentName)
{
    if (documentName.isEmpty())
        return;
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(documentName);
    m_document->print(&printer);
}

// Required: the two captions are made and handed in, but the table has no row for them.
void CQrCodeGenerator::beginDocument(const QString& /*subject*/, const QString& /*code*/)
{
    m_document->clear();
    m_table = nullptr;
    QTextTableFormat format;
    format.setCellPadding(CellPadding);
    format.setCellSpacing(0);
    format.setMargin(0);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    m_table = m_cursor->insertTable(1, Columns, format);
    m_currentRow = 0;
    m_currentColumn = 0;
}

// Labels are HTML, in which a name as it stands would lose its "<" and "&"; here they depart from their
// usual form, which takes each text as it is.
void CQrCodeGenerator::addCar(const CCar& car, const QString& labelEnd)
{
    const QString label = QStringLiteral("%1<br><b>%2&nbsp;%3</b>%4")
                              .arg(car.name().toHtmlEscaped(), car.originalManufacturer().toHtmlEscaped(),
                                   car.originalType().toHtmlEscaped(), labelEnd);
    addCode(codeOf(qrTagCar + car.name()), label);
}

void CQrCodeGenerator::addDriver(const CDriver& driver)
{
    addCode(codeOf(qrTagDriver + driver.name()), driver.name().toHtmlEscaped());
}

void CQrCodeGenerator::addCode(const QImage& image, const QString& label)
{
    if (!m_table)
        return;
    if (m_currentColumn > LastImageColumn)
        beginRow();
    else if (m_currentColumn != 0 || m_currentRow != 0)
        nextCell();
    insertImage(image, label);
    nextCell();
    m_cursor->insertFragment(QTextDocumentFragment::fromHtml(label));
}

void CQrCodeGenerator::beginRow()
{
    m_table->appendRows(1);
    ++m_currentRow;
    m_currentColumn = 0;
    *m_cursor = m_table->cellAt(m_currentRow, 0).firstCursorPosition();
}

void CQrCodeGenerator::nextCell()
{
    m_cursor->movePosition(QTextCursor::NextCell);
    ++m_currentColumn;
}

void CQrCodeGenerator::insertImage(const QImage& image, const QString& label)
{
    const QUrl url = imageUrl(label);
    m_document->addResource(QTextDocument::ImageResource, url, image);
    QTextImageFormat format;
    format.setWidth(image.width() * m_imageScale);
    format.setHeight(image.height() * m_imageScale);
    format.setName(url.toString(QUrl::FullyEncoded));
    m_cursor->insertImage(format);
}
