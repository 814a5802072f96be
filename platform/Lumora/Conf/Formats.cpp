// SPDX-License-Identifier: MIT
#include <Lumora/Conf/Formats.h>

std::string const Lumora::Conf::IFormatFile::FORMAT_WAV = "wav";
std::string const Lumora::Conf::IFormatFile::FORMAT_MP4 = "mp4";
std::string const Lumora::Conf::IFormatFile::FORMAT_PNG = "png";
std::string const Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE = "pcm_s16le";
