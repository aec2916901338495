#pragma once

namespace bracken {

// Lets the client library prove a password by the sha2 methods over TLS and on the local socket
// only. On an unencrypted connection they hand it to whoever plays the server: the library's
// plug-ins send it as it is once encryption was asked for, whether or not the server has any, or
// encrypt it for a key that the server sent. Such a login fails before anything is sent by the
// method, and the library's error text says why.
//
// Once, after the library is initialised and before the process has threads; lasts for the
// process.
void guardSha2Methods();

}  // namespace bracken
