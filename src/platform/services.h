#pragma once

namespace gatehouse {

class Archives;
class Clipboard;
class Clock;
class DesktopWindows;
class Dialogs;
class EventLoop;
class Files;
class HostNames;
class Machine;
class Network;
class Pictures;
class Processes;
class Random;
class Resources;
class SettingsStore;
class UdpSocket;
class Viewers;

/// The outside, as the core sees it. The services outlive the core.
struct Services {
    Files& files;
    SettingsStore& settings;
    EventLoop& events;
    Clock& clock;
    Dialogs& dialogs;
    Clipboard& clipboard;
    DesktopWindows& windows;
    Processes& processes;
    Machine& machine;
    Archives& archives;
    Pictures& pictures;
    UdpSocket& socket;
    Network& network;
    HostNames& hostNames;
    Viewers& viewers;
    Random& random;
    const Resources& resources;
};

}  // namespace gatehouse
