#include <private/qprintengine_pdf_p.h>
#include <qpa/qplatformprintdevice.h>
#include <qpa/qplatformprintersupport.h>
#include <qpa/qplatformprintplugin.h>

#include <QCoreApplication>
#include <QVariant>

// The printers of a machine for tests: those that the application's property "printers" names, the
// first of which is the default one. Without it there is none.

namespace {

class Device : public QPlatformPrintDevice {
  public:
    explicit Device(const QString& id) : QPlatformPrintDevice(id) {
        m_name = id;
        m_supportsMultipleCopies = true;
        m_supportsCollateCopies = true;
    }

    bool isValid() const override { return true; }
    QPrint::DeviceState state() const override { return QPrint::Idle; }
    QPageSize defaultPageSize() const override { return QPageSize(QPageSize::A4); }
    int defaultResolution() const override { return 600; }

  protected:
    void loadPageSizes() const override {
        m_pageSizes = {QPageSize(QPageSize::A4), QPageSize(QPageSize::A3)};
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
        return key == PPK_Duplex ? m_sides : QPdfPrintEngine::property(key);
    }
    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override {
        if (key == PPK_Duplex)
            m_sides = value;
        else
            QPdfPrintEngine::setProperty(key, value);
    }

  private:
    QVariant m_sides = QPrinter::DuplexNone;
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
