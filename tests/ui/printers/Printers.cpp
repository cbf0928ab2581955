#include <private/qprintengine_pdf_p.h>
#include <qpa/qplatformprintdevice.h>
#include <qpa/qplatformprintersupport.h>
#include <qpa/qplatformprintplugin.h>

#include <QCoreApplication>
#include <QVariant>
#include <memory>

// The printers of a machine for tests: those that the application's property "printers" names, the
// first of which is the default one. Without it there is none. As those of a print server they
// have smallest margins, which differ from paper to paper, and take no page with smaller ones.

namespace {

// Those that a print server is told; Qt's public headers have no name for it.
constexpr int jobOptions = 0xFE00;  // a property of printers of CUPS

class Device : public QPlatformPrintDevice {
  public:
    explicit Device(const QString& id) : QPlatformPrintDevice(id) {
        m_name = id;
        m_supportsMultipleCopies = true;
        m_supportsCollateCopies = true;
        m_supportsCustomPageSizes = id == QLatin1String("Photo");
    }

    bool isValid() const override { return true; }
    QPrint::DeviceState state() const override { return QPrint::Idle; }
    QPageSize defaultPageSize() const override { return QPageSize(QPageSize::A4); }
    int defaultResolution() const override { return 600; }

    // In points.
    QMarginsF printableMargins(const QPageSize& paper, QPageLayout::Orientation,
                               int) const override {
        if (paper.key() == QLatin1String("A4.Borderless")) return {};
        const double one =
            id() == QLatin1String("Laser") || paper.id() == QPageSize::Envelope10 ? 42.5 : 12.24;
        return {one, one, one, one};
    }

  protected:
    void loadPageSizes() const override {
        m_pageSizes = {QPageSize(QPageSize::A4), QPageSize(QPageSize::A3),
                       QPageSize(QPageSize::Envelope10),
                       createPageSize(QStringLiteral("A5"), {420, 595}, QStringLiteral("ISO A5")),
                       createPageSize(QStringLiteral("A4.Borderless"), {595, 842},
                                      QStringLiteral("A4 without border"))};
        m_havePageSizes = true;
    }
    void loadDuplexModes() const override {
        m_duplexModes = {QPrint::DuplexNone, QPrint::DuplexLongSide, QPrint::DuplexShortSide};
        m_haveDuplexModes = true;
    }
};

// Prints into nothing.
class Engine : public QPdfPrintEngine {
  public:
    Engine(QPrinter::PrinterMode mode, const QString& id)
        : QPdfPrintEngine(mode, QPdfEngine::Version_1_4) {
        setProperty(PPK_PrinterName, id);
    }

    QVariant property(PrintEnginePropertyKey key) const override {
        if (key == PPK_Duplex) return m_sides;
        if (int(key) == jobOptions) return m_jobOptions;
        return QPdfPrintEngine::property(key);
    }
    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override {
        if (key == PPK_Duplex) {
            m_sides = value;
        } else if (int(key) == jobOptions) {
            m_jobOptions = value;
        } else if (key == PPK_QPageSize) {
            SetPaper(Page(), value.value<QPageSize>());
        } else if (key == PPK_QPageLayout) {
            const auto page = value.value<QPageLayout>();
            if (m_device->supportsCustomPageSizes() || m_device->isValidPageLayout(page, 600))
                SetPaper(page, page.pageSize());
        } else {
            QPdfPrintEngine::setProperty(key, value);
        }
        if (key == PPK_PrinterName) {
            m_device = std::make_unique<Device>(value.toString());
            SetPaper(Page(), Page().pageSize());
        }
    }

  private:
    QPageLayout Page() const { return property(PPK_QPageLayout).value<QPageLayout>(); }

    void SetPaper(QPageLayout page, const QPageSize& paper) {
        const QPageSize own = m_device->supportedPageSize(paper);
        QPageLayout least(paper, page.orientation(),
                          m_device->printableMargins(paper, page.orientation(), 600),
                          QPageLayout::Point);
        least.setUnits(page.units());
        page.setPageSize(own.isValid() ? own : paper, least.margins());
        QPdfPrintEngine::setProperty(PPK_QPageLayout, QVariant::fromValue(page));
    }

    std::unique_ptr<Device> m_device;
    QVariant m_sides = QPrinter::DuplexNone;
    QVariant m_jobOptions;
};

class Printers : public QPlatformPrinterSupport {
  public:
    QStringList availablePrintDeviceIds() const override {
        return QCoreApplication::instance()->property("printers").toStringList();
    }
    QString defaultPrintDeviceId() const override { return availablePrintDeviceIds().value(0); }
    QPrintDevice createPrintDevice(const QString& id) override {
        if (!availablePrintDeviceIds().contains(id)) return {};
        return QPlatformPrinterSupport::createPrintDevice(new Device(id));
    }
    QPrintEngine* createNativePrintEngine(QPrinter::PrinterMode mode, const QString& id) override {
        return new Engine(mode, id.isEmpty() ? defaultPrintDeviceId() : id);
    }
    QPaintEngine* createPaintEngine(QPrintEngine* engine, QPrinter::PrinterMode) override {
        return static_cast<Engine*>(engine);
    }
};

}  // namespace

// Outside, where the program that takes it in finds it.
class TestPrinters : public QPlatformPrinterSupportPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QPlatformPrinterSupportFactoryInterface_iid FILE "printers.json")

  public:
    QPlatformPrinterSupport* create(const QString&) override { return new Printers; }
};

#include "Printers.moc"
