#pragma once

namespace tavel {

// The library's form in db.txt: one numbered section an entry. A failure in LoadDB keeps the
// program from starting; SaveDB's writes reach the file in one step.
void LoadDB();
void SaveDB();

}  // namespace tavel
