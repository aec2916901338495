#include "platform/mysql/sha2_guard.h"

#include <errmsg.h>
#include <mysql.h>
#include <mysql/plugin_auth.h>

#include <cstdarg>

namespace bracken {

namespace {

constexpr int authenticationType = 2;

// An authentication plug-in as in version 1.0 of the library's interface. The library's header for
// it includes one that distributions do not install.
struct Plugin {
    int type;
    unsigned interfaceVersion;
    const char* name;
    const char* author;
    const char* description;
    unsigned version[3];
    const char* license;
    void* api;
    int (*init)(char*, size_t, int, va_list);
    int (*deinit)();
    int (*options)(const char*, const void*);
    int (*authenticate)(MYSQL_PLUGIN_VIO*, MYSQL*);
};

// The library starts TLS in a plug-in's first write, so whether it is on can't be asked yet; but if
// the server offers TLS the library does not continue without it.
bool isSafe(MYSQL_PLUGIN_VIO* channel, MYSQL* handle) {
    unsigned long capabilities = 0;
    mariadb_get_infov(handle, MARIADB_CONNECTION_SERVER_CAPABILITIES, &capabilities);
    if ((capabilities & CLIENT_SSL) != 0) return true;
    MYSQL_PLUGIN_VIO_INFO info{};
    channel->info(channel, &info);
    return info.protocol == MYSQL_PLUGIN_VIO_INFO::MYSQL_VIO_SOCKET;
}

int refuse(MYSQL* handle, const char* method) {
    handle->methods->set_error(
        handle, CR_AUTH_PLUGIN_ERR, "HY000",
        "The password was not sent: the server asks for it by %s, but offers no TLS, so others "
        "could read it on the way. Switch on TLS at the server, or connect on the server's own "
        "machine through its socket (host \"localhost\", or the socket's path).",
        method);
    return CR_ERROR;
}

// A plug-in's function gets no context, so each method has a class of its own.
template <const char* method>
class Guard {
  public:
    static void install(MYSQL* handle) {
        auto* plugin =
            reinterpret_cast<Plugin*>(mysql_client_find_plugin(handle, method, authenticationType));
        if (plugin == nullptr) return;
        proceed_ = plugin->authenticate;
        plugin->authenticate = authenticate;
    }

  private:
    static int authenticate(MYSQL_PLUGIN_VIO* channel, MYSQL* handle) {
        return isSafe(channel, handle) ? proceed_(channel, handle) : refuse(handle, method);
    }

    static inline int (*proceed_)(MYSQL_PLUGIN_VIO*, MYSQL*) = nullptr;
};

constexpr char cachingSha2[] = "caching_sha2_password";
constexpr char sha256[] = "sha256_password";

}  // namespace

void guardSha2Methods() {
    MYSQL* handle = mysql_init(nullptr);
    Guard<cachingSha2>::install(handle);
    Guard<sha256>::install(handle);
    mysql_close(handle);
}

}  // namespace bracken
