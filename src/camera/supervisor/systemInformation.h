#pragma once

/// Reads WiFi name, passphrase and MAC address over the camera's shell, keeps them in the facade and shows them through
/// its signals. What could not be read is shown as empty; of the MAC address the facade then keeps what it had. Blocks
/// like every shell call: never from the GUI thread.
void publishSystemInformation();
