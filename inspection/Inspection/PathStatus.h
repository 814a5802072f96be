// SPDX-License-Identifier: MIT
//
// What a path leads to on disk. Nothing is made or changed to find out.
#pragma once

#include <QString>

#include <string>

struct PathStatus {
    bool exists = false;
    bool isWritable = false; ///< For what is missing: whether it can be made.
    bool isUsable = true;    ///< Whether the editor can make files there, after making the folder where it is missing.
    std::string remark;      ///< What is wrong or odd; empty where nothing is.
};

/// Looks at a folder that the editor writes to, as the user who asks.
PathStatus writtenFolderStatus(QString const& path);
/// Looks at a file or folder that the editor reads.
PathStatus readPathStatus(QString const& path);
