#pragma once

#include "media/TagReader.h"
#include "platform/Collection.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The frames of a tag by id, each with its instances. Ids match without regard to case, and the
// empty id is one like any other.
//
// Three lists make it up: the ids, their counts, the texts. RemoveFrame by position and RemoveTag
// may leave them at odds with each other; what such a list is asked for then fails or is told as it
// stands.
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

    // The same by id, failing with 5 when there is none.
    Long InstanceCount(std::string_view id) const { return m_cFrameCounts.Item(id); }
    // The text of an instance, numbered from 1; fails with 5 when there is none.
    const std::string& FrameText(std::string_view id, Long number) const;

    // Removes a frame with all its instances; fails with 5. By position, which fails with 9, it is
    // the frame at that place and the count at that place among the counts, which may be another
    // frame's.
    void RemoveFrame(std::string_view id);
    void RemoveFrame(Long position);

    // Adds an instance behind the others. The text goes into the first one alone: a further one has
    // the id as its text. Fails with 5 where the frame has lost its count, and with 457 where a
    // count or a text has stayed behind in the place of the new one.
    void AddTag(const std::string& id, std::string text);

    // Removes an instance, numbered from 1, and with the last one the frame; fails with 5 when
    // there is none. As long as others of the frame stay they are numbered anew, and the texts of
    // all other frames are gone.
    void RemoveTag(std::string_view id, Long number);

  private:
    void RemoveTexts(std::string_view id);
    void ReplaceCount(std::string_view id, Long count);
    void KeepTextsOf(std::string_view id, Long last, Long without);

    Collection<std::string> m_cFrames;     // id by id
    Collection<Long> m_cFrameCounts;       // number of instances by id
    Collection<std::string> m_cFrameData;  // text by id, colon and number
};

}  // namespace tavel
