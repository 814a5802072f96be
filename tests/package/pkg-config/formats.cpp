// SPDX-License-Identifier: MIT
#include <Lumora/Conf/Formats.h>

#include <cstdio>

int main() { std::puts(Lumora::Conf::IFormatFile::FORMAT_MP4.c_str()); }
