#include "platform/random.h"

namespace gatehouse {

double Random::next() {
    // xorshift64*; the upper 53 bits make the fraction.
    state_ ^= state_ >> 12;
    state_ ^= state_ << 25;
    state_ ^= state_ >> 27;
    return static_cast<double>((state_ * 0x2545F4914F6CDD1Du) >> 11) * 0x1.0p-53;
}

}  // namespace gatehouse
