// SPDX-License-Identifier: MIT
//
// A host: all that the guide's blocks use, and the block.
#include <Host/Application.h>
#include <Notifier/Notifier.h>
#include <Settings/Settings.h>
#include <Storage/Backup.h>
#include <Storage/Batch.h>
#include <Storage/Conflict.h>
#include <Storage/SqliteStorage.h>
#include <TestKit/MemoryStorage.h>

#include <QApplication>
#include <QCheckBox>
#include <QSettings>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};

@1@
