#include "bench/BenchLibrarySize.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

int BenchLibrarySize::s_songs = BenchLibrarySize::kDefault;

bool BenchLibrarySize::take(int* argc, char** argv)
{
    int kept = 1;
    for (int i = 1; i < *argc; ++i) {
        const char* value = nullptr;
        if (std::strcmp(argv[i], "--songs") == 0 && i + 1 < *argc)
            value = argv[++i];
        else if (std::strncmp(argv[i], "--songs=", 8) == 0)
            value = argv[i] + 8;
        else {
            argv[kept++] = argv[i];
            continue;
        }
        char* end = nullptr;
        const long songs = std::strtol(value, &end, 10);
        if (*value == '\0' || *end != '\0' || songs <= 0 || songs > 100000000) {
            std::fprintf(stderr, "--songs takes a positive number of songs, not \"%s\"\n", value);
            return false;
        }
        s_songs = int(songs);
    }
    *argc = kept;
    argv[kept] = nullptr;
    return true;
}
