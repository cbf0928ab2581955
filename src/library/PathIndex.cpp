#include "library/PathIndex.h"

#include "library/Collections.h"
#include "platform/Failure.h"

#include <string>
#include <unordered_set>

namespace tavel {

namespace {

template <class T>
class PathIndex {
  public:
    explicit PathIndex(const Collection<T>& collection) : m_collection(collection) {}

    bool Has(std::string_view sPath) {
        if (m_collection.Removals() != m_removals) Forget();
        for (; m_known < m_collection.Count(); ++m_known)
            m_paths.insert(m_collection.Item(m_known + 1).sPath);
        return m_paths.count(std::string(sPath)) != 0;
    }

    void Forget() {
        m_paths.clear();
        m_known = 0;
        m_removals = m_collection.Removals();
    }

  private:
    const Collection<T>& m_collection;
    std::unordered_set<std::string> m_paths;
    Long m_known = 0;  // entries taken in, from the first on
    std::size_t m_removals = 0;
};

PathIndex<Photo> photos{colPhoto};
PathIndex<Video> videos{colVideo};
PathIndex<Music> music{colMusic};

}  // namespace

bool HasPath(MediaType itemType, std::string_view sPath) {
    switch (itemType) {
        case mtPhoto:
            return photos.Has(sPath);
        case mtVideo:
            return videos.Has(sPath);
        case mtMusic:
            return music.Has(sPath);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

void ForgetPaths() {
    photos.Forget();
    videos.Forget();
    music.Forget();
}

}  // namespace tavel
