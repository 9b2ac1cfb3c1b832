#pragma once

#include "platform/pictures.h"

namespace gatehouse {

/// Pictures through the toolkit's readers, by paths in the program's form. What a file is, its content tells and not
/// its name. Refused are a file above 64 MiB, a picture of more than 16384 points a side or 64 million in all, and a
/// BMP file with less data than it claims; a JPEG file that was cut short shows what there is of it.
class QtPictures : public Pictures {
public:
    /// At most 2048 points a side come back.
    Picture open(const std::string& path) override;
    std::string bmp(Picture picture) override;
    std::string png(const std::string& svg, int width) override;
};

}  // namespace gatehouse
