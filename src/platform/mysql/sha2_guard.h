#pragma once

namespace bracken {

// Restricts the client library's sha2 methods of login to TLS and the local socket. On an
// unencrypted connection they would reveal the password to anyone who poses as the server: if
// encryption was requested they send it in clear even to a server without any, or else encrypt it
// with a key that the server sent. Such a login now fails before the method sends anything, and the
// library's error text gives the reason.
//
// Call once, after the library is initialised and before the process has threads; in effect until
// the process ends.
void guardSha2Methods();

}  // namespace bracken
