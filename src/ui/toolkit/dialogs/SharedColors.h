#pragma once

#include <QVariantMap>

namespace tavel {

// The custom colours that all Qt programs of the user share: at its end they are what they were at
// its beginning. Every dialog of colours that goes leaves its own there.
class SharedColors {
  public:
    SharedColors();
    ~SharedColors();
    SharedColors(const SharedColors&) = delete;
    SharedColors& operator=(const SharedColors&) = delete;

  private:
    QVariantMap m_before;
};

}  // namespace tavel
