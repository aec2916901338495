#include "platform/mysql/connect_attempt.h"

#include <string_view>
#include <thread>

#include "platform/mysql/handle_settings.h"

namespace bracken {

namespace {

std::string timedOut(const std::string& host, std::chrono::milliseconds timeout) {
    return "Can't connect to server on '" + host + "': no answer within " +
           std::to_string(std::chrono::ceil<std::chrono::seconds>(timeout).count()) + " s";
}

// A server that is full, or shuts this machine out, says so before encryption could begin. The
// library puts a warning and the error's number in front; the server's own words are enough.
std::string withoutWarning(std::string text) {
    constexpr std::string_view warning =
        "Received error packet before completion of TLS handshake. The authenticity of the "
        "following error cannot be verified: ";
    constexpr std::string_view dash = " - ";
    size_t behindNumber = text.find(dash, warning.size());
    if (!text.starts_with(warning) || behindNumber == std::string::npos) return text;
    return text.substr(behindNumber + dash.size());
}

}  // namespace

ConnectAttempt::ConnectAttempt(std::string host, std::string user, std::string password,
                               std::chrono::milliseconds timeout)
    : host_(std::move(host)),
      user_(std::move(user)),
      password_(std::move(password)),
      timeout_(timeout) {}

std::shared_ptr<Connection> ConnectAttempt::run() {
    std::thread thread([self = shared_from_this()] { self->connect(); });
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, timeout_, [this] { return done_ || abandoned_; });
    if (done_) {
        lock.unlock();
        thread.join();
        return std::move(connection_);
    }
    abandoned_ = true;
    error_ = timedOut(host_, timeout_);
    thread.detach();
    return nullptr;
}

void ConnectAttempt::abandon() {
    std::lock_guard lock(mutex_);
    abandoned_ = true;
    changed_.notify_all();
}

void ConnectAttempt::connect() {
    MYSQL* handle = mysql_init(nullptr);
    configure(handle, timeout_);
    // An empty password goes as such: without one the library would look for it elsewhere. Port and
    // socket are the library's own, the database is chosen later.
    if (mysql_real_connect(handle, host_.c_str(), user_.c_str(), password_.c_str(), nullptr, 0,
                           nullptr, 0) != nullptr) {
        settle(handle);
        finish(std::make_shared<Connection>(handle), "");
        return;
    }
    std::string error = withoutWarning(mysql_error(handle));
    mysql_close(handle);
    finish(nullptr, std::move(error));
}

void ConnectAttempt::finish(std::shared_ptr<Connection> connection, std::string error) {
    std::lock_guard lock(mutex_);
    if (abandoned_) return;
    connection_ = std::move(connection);
    error_ = std::move(error);
    done_ = true;
    changed_.notify_all();
}

}  // namespace bracken
