#pragma once

#include "media/TagReader.h"
#include "platform/Collection.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The frames of a tag by id, each with its instances. Ids match without regard to case, and the
// empty id is one like any other.
class FrameList {
  public:
    FrameList() = default;
    explicit FrameList(std::vector<TagFrame> frames);

    Long FrameCount() const { return m_cFrames.Count(); }  // distinct ids
    // An id by its position from 1, in order of first appearance; fails with 9.
    const std::string& Frame(Long index) const { return m_cFrames.Item(index); }

    // The number of instances of an id, 0 for an id that is not there. By position: the counts
    // stand in the order in which their ids appeared last.
    Long TagsInFrame(std::string_view id) const;
    Long TagsInFrame(Long position) const;

    // The text of an instance, numbered from 1; fails with 5 when there is none.
    const std::string& FrameText(std::string_view id, Long number) const;

  private:
    Collection<std::string> m_cFrames;     // id by id
    Collection<Long> m_cFrameCounts;       // number of instances by id
    Collection<std::string> m_cFrameData;  // text by id, colon and number
};

}  // namespace tavel
