#pragma once

// The commands, by the file that holds them.

#include "cli/session.h"

namespace cli {

// inspect.cpp
extern const Command kInfo;
extern const Command kCurve;

// figures.cpp
extern const Command kFigures;

// edit.cpp
extern const Command kNew;
extern const Command kEdit;
extern const Command kTemplates;

// generate.cpp
extern const Command kGenerate;
extern const Command kPlaces;

// convert.cpp
extern const Command kConvert;

// frames.cpp
extern const Command kFrames;

// render.cpp
extern const Command kRender;

// device_list.cpp
extern const Command kDevices;
extern const Command kScan;

// device_commands.cpp
extern const Command kUpload;
extern const Command kDemo;
extern const Command kSyncTime;
extern const Command kClear;

// wifi_setup.cpp
extern const Command kWifiSetup;

// usb_setup.cpp
extern const Command kUsbSetup;

// doctor.cpp
extern const Command kDoctor;

}  // namespace cli
