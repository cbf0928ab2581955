// Writes a db.txt of three times the given number of items to the standard output.

#include "SampleLibrary.h"

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    std::cout << tavel::bench::SampleLibrary(argc > 1 ? std::atoi(argv[1]) : 10000);
    return 0;
}
