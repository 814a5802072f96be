// SPDX-License-Identifier: MIT
#pragma once

#include <QTextCodec>

/// Whether the codec that a program sets decides how Qt reads the names of files. Where it does not, they are UTF-8.
constexpr bool codecDecides = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

/// The program's codec is `name` for as long as it lives; the locale's where `name` is null.
class FileNameCodec {
public:
    explicit FileNameCodec(char const* name)
    {
        if (name)
            QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }
    ~FileNameCodec() { QTextCodec::setCodecForLocale(nullptr); }
    FileNameCodec(FileNameCodec const&) = delete;
    FileNameCodec& operator=(FileNameCodec const&) = delete;
};
