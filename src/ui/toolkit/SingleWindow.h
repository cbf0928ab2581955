#pragma once

#include "ui/toolkit/WindowRegistry.h"

#include <QCloseEvent>

namespace tavel {

// The one global instance of a window class. The first touch creates it, hidden; after it was
// unloaded the next touch creates a fresh one, with its controls in their initial state.
//
// The constructor builds the controls and may be the load handler as well. A load handler that
// reaches its own window through Get, directly or through an up-call, stands in a member `Load()`
// instead, which is called once the instance is known.
//
// Closing the window by its box unloads it, unless its closeEvent ignores the event. W must not be
// final, and its closeEvent protected.
template <class W>
class SingleWindow {
  public:
    static W& Get() {
        if (!Loaded()) Create();
        return *s_window;
    }

    static bool Loaded() { return s_window != nullptr; }

    // Runs no closeEvent. May be called from within a handler of the window: the object lives on,
    // hidden, until control is back in the event loop, but Get gives a fresh one from now on.
    static void Unload() {
        if (!Loaded()) return;
        W* gone = Forget();
        gone->hide();
        gone->deleteLater();
    }

  private:
    class Instance : public W {
      protected:
        void closeEvent(QCloseEvent* event) override {
            W::closeEvent(event);
            if (!event->isAccepted() || s_window != this) return;
            Forget();
            this->deleteLater();
        }
    };

    static void Create() {
        s_window = new Instance;
        WindowRegistry::Add(*s_window, &SingleWindow::Unload);
        if constexpr (requires(W & window) { window.Load(); }) s_window->Load();
    }

    static W* Forget() {
        W* window = s_window;
        s_window = nullptr;
        WindowRegistry::Remove(*window);
        return window;
    }

    static inline W* s_window = nullptr;
};

}  // namespace tavel
