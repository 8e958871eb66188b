#pragma once

// The writer's own exit codes. avrdude's codes (0, 1) pass through unchanged, so these
// stay clear of them and of the 128+ range a shell gives to signals.
enum class EWriterExit : int
{
    Usage = 64,      // an option the writer does not understand
    NoPort = 65,     // no /C: the editor finds the port and must pass it
    HexMissing = 66, // the HEX file named does not exist
    NoAvrdude = 67,  // avrdude is not installed or could not be started
};
