// The one open serial port: 8 data bits, no parity, one stop bit, no flow control, DTR and RTS off. In: the
// line. Out: bytes, without ever waiting for them.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace vistor {

/// Opens port number `port` at `speed` bits per second for this program alone and empties the line. False
/// when that failed; no message is shown.
bool OpenPort(std::int32_t port, std::int32_t speed);
/// Closes the port; does nothing when none is open.
void ClosePort();
/// Makes `bytes` what has arrived, at most 31000 bytes, with one 0 behind them. False when nothing has, or
/// the device is gone; `bytes` stays as it is then.
bool ReadPort(std::vector<std::uint8_t>& bytes);

/// OpenPort with the reason: empty when the port is open, else what is wrong and what to do, in words. The
/// line keeps DTR when it is closed (no hang-up), so that a board that resets on it goes on.
QString openLine(std::int32_t port, std::int32_t speed);

/// True while a port is open and its device is still the one of that name.
bool portStands();

/// The device behind a port number: what key `port` of section "PORTS" in the settings names, else the port's
/// place among the devices that are present, USB adapters first. Empty when there is none.
QString portDevice(std::int32_t port);

/// The words for a device that cannot be opened. `error`: as in errno; `group`: the one whose members may use
/// the device, empty for none.
QString deviceProblem(std::int32_t port, const QString& device, int error, const QString& group);

} // namespace vistor
