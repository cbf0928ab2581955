#include "media/FrameList.h"

#include <utility>

namespace tavel {

namespace {

std::string InstanceKey(std::string_view id, Long number) {
    std::string key(id);
    key += ':';
    key += std::to_string(number);
    return key;
}

}  // namespace

FrameList::FrameList(std::vector<TagFrame> frames) {
    Collection<Long> counts;
    for (TagFrame& frame : frames) {
        if (!m_cFrames.Has(frame.Id)) {
            m_cFrames.Add(frame.Id, frame.Id);
            counts.Add(frame.Id, 0);
        }
        const Long number = ++counts.Item(frame.Id);
        m_cFrameData.Add(InstanceKey(frame.Id, number), std::move(frame.Text));
    }

    // Counting up means taking a count out and putting it back at the end, so the counts stand by
    // last appearance. Done once for all: a tag may hold a million frames.
    std::vector<std::pair<std::string_view, Long>> fromTheLast;
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
        const Long count = std::exchange(counts.Item(frame->Id), 0);
        if (count > 0) fromTheLast.emplace_back(frame->Id, count);
    }
    for (auto entry = fromTheLast.rbegin(); entry != fromTheLast.rend(); ++entry) {
        m_cFrameCounts.Add(entry->first, entry->second);
    }
}

Long FrameList::TagsInFrame(std::string_view id) const {
    return m_cFrameCounts.Has(id) ? m_cFrameCounts.Item(id) : 0;
}

Long FrameList::TagsInFrame(Long position) const {
    if (position < 1 || position > m_cFrameCounts.Count()) return 0;
    return m_cFrameCounts.Item(position);
}

const std::string& FrameList::FrameText(std::string_view id, Long number) const {
    return m_cFrameData.Item(InstanceKey(id, number));
}

}  // namespace tavel
