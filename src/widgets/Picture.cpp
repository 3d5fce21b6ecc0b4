#include "widgets/Picture.h"

namespace paperkite {

void ImageList::Add(const std::string& key, Picture picture) {
    if (mPictures.Contains(key))
        mPictures.Item(key) = std::move(picture);
    else
        mPictures.Add(std::move(picture), key);
}

const Picture& ImageList::Item(const std::string& key) const {
    return mPictures.Item(key);
}

const Picture& ImageList::Item(std::size_t position) const {
    return mPictures.Item(position);
}

void ImageList::Replace(std::size_t position, Picture picture) {
    mPictures.Item(position) = std::move(picture);
}

const Picture* ImageList::Find(const std::string& key) const {
    return mPictures.Find(key);
}

bool ImageList::Contains(const std::string& key) const {
    return mPictures.Contains(key);
}

std::size_t ImageList::Count() const {
    return mPictures.Count();
}

} // namespace paperkite
