#include "media/FrameList.h"

#include <utility>

namespace tavel {

namespace {

template <class T>
void RemoveIfThere(Collection<T>& entries, std::string_view key) {
    if (entries.Has(key)) entries.Remove(key);
}

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

void FrameList::RemoveFrame(std::string_view id) {
    const std::string frame = m_cFrames.Item(id);  // `id` may be the entry that goes
    m_cFrames.Remove(frame);
    m_cFrameCounts.Remove(frame);
    RemoveTexts(frame);
}

void FrameList::RemoveFrame(Long position) {
    const std::string frame = m_cFrames.Item(position);
    m_cFrames.Remove(position);
    m_cFrameCounts.Remove(position);
    RemoveTexts(frame);
}

// As far as they are numbered without a gap, whatever the count says.
void FrameList::RemoveTexts(std::string_view id) {
    for (Long number = 1; m_cFrameData.Has(InstanceKey(id, number)); ++number) {
        m_cFrameData.Remove(InstanceKey(id, number));
    }
}

// The setters remove a frame before they add it, and so are never met by the id for a text.
void FrameList::AddTag(const std::string& id, std::string text) {
    Long number = 1;
    if (m_cFrames.Has(id)) {
        text = m_cFrames.Item(id);
        number = m_cFrameCounts.Item(id) + 1;
        ReplaceCount(id, number);
    } else {
        m_cFrames.Add(id, id);
        m_cFrameCounts.Add(id, number);
    }
    m_cFrameData.Add(InstanceKey(id, number), std::move(text));
}

void FrameList::RemoveTag(std::string_view id, Long number) {
    m_cFrameData.Remove(InstanceKey(id, number));
    const Long left = m_cFrameCounts.Has(id) ? m_cFrameCounts.Item(id) - 1 : 0;
    if (left == 0) {
        RemoveIfThere(m_cFrameCounts, id);
        RemoveIfThere(m_cFrames, id);
    } else {
        ReplaceCount(id, left);
        KeepTextsOf(id, left + 1, number);
    }
}

// The count goes to the end of the list.
void FrameList::ReplaceCount(std::string_view id, Long count) {
    m_cFrameCounts.Remove(id);
    m_cFrameCounts.Add(id, count);
}

// A text that is missing leaves its number free.
void FrameList::KeepTextsOf(std::string_view id, Long last, Long without) {
    Collection<std::string> kept;
    Long newNumber = 0;
    for (Long number = 1; number <= last; ++number) {
        if (number == without) continue;
        const std::string key = InstanceKey(id, number);
        ++newNumber;
        if (m_cFrameData.Has(key)) {
            kept.Add(InstanceKey(id, newNumber), std::move(m_cFrameData.Item(key)));
        }
    }
    m_cFrameData = std::move(kept);
}

}  // namespace tavel
