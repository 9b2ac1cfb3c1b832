#include "game.h"
#include "udp_port.h"

#include <cstdlib>

namespace {

using std::chrono::milliseconds;

/// A number of the environment in the given unit, or the default where there is none that makes sense.
milliseconds fromEnvironment(const char* name, milliseconds unit, milliseconds otherwise) {
    const char* text = std::getenv(name);
    const long number = text ? std::strtol(text, nullptr, 10) : 0;
    return number > 0 && number <= 86'400'000 ? unit * number : otherwise;
}

}  // namespace

int main(int argc, char** argv) {
    namespace practice = gatehouse::practice;
    const practice::Words arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--ask") return practice::askAndPrint(arguments[1]);

    practice::Limits limits;
    limits.lifetime = fromEnvironment("PRACTICE_LIFETIME", std::chrono::seconds(1), limits.lifetime);
    limits.demo = fromEnvironment("PRACTICE_DEMO_MS", milliseconds(1), limits.demo);
    return practice::Game(arguments, limits).run();
}
