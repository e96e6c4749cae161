#pragma once
// The library size a benchmark program runs at: "--songs N" on its command
// line (taken out before Google Benchmark reads the rest), 100,000 without.

class BenchLibrarySize {
public:
    static constexpr int kDefault = 100000;

    /** Reads and removes "--songs N" or "--songs=N" from @p argc / @p argv; false, with a
     *  message on standard error, when N is not a positive number. */
    static bool take(int* argc, char** argv);
    /** The size read, or kDefault. */
    static int songs() { return s_songs; }

private:
    static int s_songs;
};
