// mp-samplegen OUTPUT_FOLDER: writes the sample library into OUTPUT_FOLDER
// and prints one summary line.

#include "SampleLibraryWriter.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 2 || arguments.at(1).startsWith(QLatin1Char('-'))) {
        std::fputs("usage: mp-samplegen OUTPUT_FOLDER\n"
                   "Writes a small sample library of tagged songs, untagged recordings,\n"
                   "videos and a play list into OUTPUT_FOLDER; files already complete are kept.\n",
                   stderr);
        return 2;
    }
    SampleLibraryWriter writer(arguments.at(1));
    if (!writer.write()) {
        std::fprintf(stderr, "mp-samplegen: %s\n", qPrintable(writer.errorString()));
        return 1;
    }
    std::printf("mp-samplegen: %s\n", qPrintable(writer.summary()));
    return 0;
}
