// number N: prints a tuning file that carries N.
#include <cstdio>
#include <cstdlib>

#include "files.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::puts(live_test::numberedText(std::atoi(argv[1])).c_str());
    return 0;
}
