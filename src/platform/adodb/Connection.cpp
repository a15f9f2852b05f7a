#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/ConnectionString.h"
#include "platform/adodb/Engine.h"
#include "platform/adodb/RecordsetImpl.h"
#include "platform/adodb/Session.h"

namespace OVT_ZARO::ADODB {

namespace {
const char* const kSource = "ADODB.Connection";
[[noreturn]] void Raise(int32_t number) { throw Error(number, kSource, AdoErrorText(number)); }
}  // namespace

bool EmbeddedEngineStarted() { return detail::engine::EmbeddedServerStarted(); }

Connection::Connection() = default;

// The session closes when its last owner goes: this connection, or a
// recordset opened on it that outlives it (as the platform's recordsets keep
// their connection).
Connection::~Connection() = default;

void Connection::Open(const std::string& connectionString) {
    if (State() == adStateOpen) Raise(AdoErr::ObjectOpen);
    if (!connectionString.empty()) ConnectionString = connectionString;
    const detail::ConnectionOptions options = detail::ParseConnectionString(ConnectionString);
    session_ = detail::Session::Open(options);
}

void Connection::Close() {
    if (State() != adStateOpen) Raise(AdoErr::ObjectClosed);
    auto s = std::move(session_);
    s->Close();
}

int Connection::State() const { return session_ && session_->IsOpen() ? adStateOpen : adStateClosed; }

bool Connection::IsEmbedded() const { return session_ && session_->Embedded(); }

std::string Connection::CurrentServer() const { return session_ ? session_->CurrentServer() : std::string(); }

std::vector<std::string> Connection::Servers() const {
    return session_ ? session_->ServerNames() : std::vector<std::string>();
}

int64_t Connection::RecordsAffected() const { return session_ ? session_->lastAffected : -1; }

std::shared_ptr<Recordset> Connection::Execute(const std::string& CommandText, int Options) {
    if (State() != adStateOpen) Raise(AdoErr::ConnectionUnusable);
    detail::Session* s = session_.get();
    const bool noRecords = Options != -1 && (Options & adExecuteNoRecords) != 0;
    MYSQL_RES* res = s->Call([&] {
        MYSQL_RES* r = s->QueryStored(CommandText, kSource);
        if (r && noRecords) {
            mysql_free_result(r);
            r = nullptr;
        }
        return r;
    });
    if (!res) return nullptr;
    auto rs = std::make_shared<Recordset>();
    rs->impl_->Adopt(session_, res);
    rs->CursorType = adOpenStatic;
    rs->CursorLocation = adUseClient;
    return rs;
}

}  // namespace OVT_ZARO::ADODB
