#pragma once

#include "platform/Failure.h"

namespace tavel {

// What has to be so before a file operation begins, in terms of each host's Place (Places.h).

template <class Place>
void RequireFile(const Place& place) {
    if (place.failure != 0) Fail(place.failure);
    if (!place.IsFile()) Fail(failure::FileNotFound);
}

template <class Place>
void RequireFree(const Place& place) {
    if (place.failure == 0) Fail(failure::FileAlreadyExists);
    if (place.failure != failure::FileNotFound) Fail(place.failure);
    if (place.name.empty()) Fail(failure::BadFileName);
}

template <class Place>
void RequireOneDrive(const Place& place) {
    if (place.path.HasSecondDrive()) Fail(failure::BadFileName);
}

}  // namespace tavel
