// Appends the seal to a finished help book, by which the program checks that it is complete.
#include "app/help/helpSeal.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QFile book(argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!book.open(QIODevice::ReadWrite)) {
        std::fputs("usage: tarvik_sealbook BOOK\n", stderr);
        return EXIT_FAILURE;
    }
    const QByteArray seal = tarvik::HelpSeal(book.readAll());
    const bool isWritten = book.seek(book.size()) && book.write(seal) == seal.size() && book.flush();
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
