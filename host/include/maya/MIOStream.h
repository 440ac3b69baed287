#pragma once

// The standard streams, with the names that plug-ins use without std:: in front.

#include <fstream>
#include <iostream>

using std::cerr;
using std::cin;
using std::clog;
using std::cout;
using std::endl;
using std::flush;
using std::fstream;
using std::ifstream;
using std::ios;
using std::istream;
using std::ofstream;
using std::ostream;
