#pragma once

#include <functional>

class QWidget;

namespace tavel {

// All windows that are loaded, in the order in which they came. SingleWindow keeps it.
namespace WindowRegistry {

void Add(QWidget& window, std::function<void()> unload);
void Remove(QWidget& window);

// Unloads every loaded window but the one of this object name.
void UnloadAllBut(const char* name);

}  // namespace WindowRegistry

}  // namespace tavel
