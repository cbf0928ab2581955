#pragma once

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

namespace tavel::test {

// The printers of this machine, the first of them the default one, for as long as it lives. A
// machine that tests run on has none else.
class Printers {
  public:
    explicit Printers(const QStringList& names) { qApp->setProperty("printers", names); }
    ~Printers() { qApp->setProperty("printers", QVariant()); }
    Printers(const Printers&) = delete;
    Printers& operator=(const Printers&) = delete;
};

}  // namespace tavel::test
