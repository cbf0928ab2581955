#pragma once

#include "core/PublicStuff.h"
#include "support/Support.h"

namespace tavel::test {

// A library of its own that watches a folder with a.jpg and b.jpg.
inline void WatchTwoPictures(const TempFolder& temp) {
    sDBFile = temp.DrivePath("db.txt");
    sPhotoSupport = {"jpg"};
    temp.Write("media/a.jpg", "picture");
    temp.Write("media/b.jpg", "picture");
    temp.Write("db.txt", "[watch]\r\nnoofflds=1\r\n0=" + temp.DrivePath("media") + "\r\n");
}

}  // namespace tavel::test
