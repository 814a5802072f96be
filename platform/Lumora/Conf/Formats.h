// SPDX-License-Identifier: MIT

/// @file
/// Names of file formats and codecs, as they are stored in preferences and used as file extensions. ASCII.
/// The values exist once libLumoraConf is loaded; a library that links to it may copy them while it is being loaded.
#pragma once

#include <string>

/// Marks what libLumoraConf offers to other libraries.
#if !defined(_WIN32)
#define LUMORA_CONF_EXPORT __attribute__((visibility("default")))
#elif defined(LUMORA_CONF_BUILD)
#define LUMORA_CONF_EXPORT __declspec(dllexport)
#else
#define LUMORA_CONF_EXPORT __declspec(dllimport)
#endif

/// The editor's own platform libraries.
namespace Lumora {
/// Names of formats.
namespace Conf {

/// File formats.
struct LUMORA_CONF_EXPORT IFormatFile {
    static std::string const FORMAT_WAV; ///< "wav"
    static std::string const FORMAT_MP4; ///< "mp4"
    static std::string const FORMAT_PNG; ///< "png"
};

/// Audio codecs.
struct LUMORA_CONF_EXPORT IFormatCodecAudio {
    static std::string const CODEC_ID_PCM_S16LE; ///< "pcm_s16le": uncompressed, 16 bits, little endian
};

} // namespace Conf
} // namespace Lumora
