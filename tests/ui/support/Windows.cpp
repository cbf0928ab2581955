#include "ui/support/Windows.h"

#include "core/PublicStuff.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/WindowRegistry.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

Application& TheApplication() { return *static_cast<Application*>(qApp); }

void FailTheTest() { ADD_FAILURE() << "the process would have ended"; }

}  // namespace

void RunEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

FatalEnds::FatalEnds() {
    TheApplication().SetEnd([this] { ++m_count; });
}

FatalEnds::~FatalEnds() { TheApplication().SetEnd(FailTheTest); }

void CleanUp() {
    TheApplication().SetEnd(FailTheTest);
    WindowRegistry::UnloadAllBut("");
    RunEvents();
    ResetPublicStuff();
}

}  // namespace tavel::test
