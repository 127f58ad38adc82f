#include "support/RandomMessage.h"

#include <vector>

// Builds odd messages from pieces that sit on the edges of the rules: names at
// columns 18 to 21, folded lines, every line end, NUL bytes, quotes, long lines.
std::string RandomMessage(std::mt19937& random) {
    static const std::vector<std::string> pieces = {"From: a",
                                                    "Subject: s",
                                                    "Date: Mon, 3 Mar 2003 12:34:56 +0100",
                                                    "Content-Type: x",
                                                    "\tboundary=\"zz\"",
                                                    "boundary=zz",
                                                    "boundary=",
                                                    "--zz",
                                                    "zz",
                                                    "--zz--",
                                                    "\tfilename=\"f.txt\"",
                                                    "filename=NA",
                                                    "filename=g",
                                                    " filename=\"h\"; size=1",
                                                    "Resent-From: r",
                                                    "NA",
                                                    std::string(18, ' ') + "From: col19",
                                                    std::string(19, ' ') + "From: col20",
                                                    std::string(17, ' ') + "zz",
                                                    std::string(18, ' ') + "zz",
                                                    std::string(600, 'v'),
                                                    "Subject: " + std::string(700, 'w'),
                                                    "body text",
                                                    "",
                                                    "x From: y",
                                                    "From:From:",
                                                    "boundary=\" \"",
                                                    std::string(3000, ' ') + "xNA",
                                                    " " + std::string(5000, 'q'),
                                                    "filename=" + std::string(4500, 'n')};
    static const std::vector<std::string> ends = {"\r\n", "\n", "\r", "\n\r", "\r\r\n"};
    std::string message;
    const int lines = std::uniform_int_distribution<int>(0, 14)(random);
    for (int i = 0; i < lines; ++i) {
        message += pieces[random() % pieces.size()];
        message += ends[random() % ends.size()];
        if (random() % 40 == 0) message += '\0';
    }
    if (random() % 3 == 0) message += pieces[random() % pieces.size()];
    return message;
}
