#include "tests/window/SessionManager.h"

#include "tests/support/Waiting.h"

#include <QtCore/QtGlobal>

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <array>
#include <cstdlib>
#include <poll.h>
#include <utility>

namespace reelhouse::tests {

/// What the library's callbacks are given.
struct SessionManager::Connections {
    IceListenObj* listeners = nullptr;
    int listenerCount = 0;
    IceConn program = nullptr;
    SmsConn session = nullptr;
    bool isRegistered = false;
    bool isEnding = false;
    bool hasSaved = false;

    void takeMessages();
    void close();

    static Status welcome(SmsConn session, SmPointer data, unsigned long* mask,
        SmsCallbacks* callbacks, char** failureReason);
    static Status enrol(SmsConn session, SmPointer data, char* previousId);
    static void noteSaved(SmsConn session, SmPointer data, Bool success);
};

namespace {

bool isReadable(int descriptor)
{
    pollfd waiting{descriptor, POLLIN, 0};
    return poll(&waiting, 1, 1) > 0;
}

Bool trustEverybody(char* /*host*/)
{
    return True;
}

// What a program tells of itself, and asks for, without anybody here wanting to know.
void ignoreRequest(SmsConn, SmPointer, int) {}
void ignoreInteraction(SmsConn, SmPointer, Bool) {}
void ignoreSaving(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}
void ignorePhase(SmsConn, SmPointer) {}
void ignoreClosing(SmsConn, SmPointer, int count, char** reasons)
{
    SmFreeReasons(count, reasons);
}
void ignoreProperties(SmsConn, SmPointer, int count, SmProp** properties)
{
    for (int index = 0; index < count; ++index)
        SmFreeProperty(properties[index]);
    std::free(properties);
}
void ignoreDeletions(SmsConn, SmPointer, int count, char** names)
{
    for (int index = 0; index < count; ++index)
        std::free(names[index]);
    std::free(names);
}
void ignoreQuestion(SmsConn session, SmPointer)
{
    SmsReturnProperties(session, 0, nullptr);
}

/// The library would end the test.
void outliveProgram(IceConn) {}

} // namespace

Status SessionManager::Connections::welcome(SmsConn session, SmPointer data, unsigned long* mask,
    SmsCallbacks* callbacks, char** /*failureReason*/)
{
    static_cast<Connections*>(data)->session = session;
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
        | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask
        | SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask
        | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client = {&Connections::enrol, data};
    callbacks->interact_request = {&ignoreRequest, data};
    callbacks->interact_done = {&ignoreInteraction, data};
    callbacks->save_yourself_request = {&ignoreSaving, data};
    callbacks->save_yourself_phase2_request = {&ignorePhase, data};
    callbacks->save_yourself_done = {&Connections::noteSaved, data};
    callbacks->close_connection = {&ignoreClosing, data};
    callbacks->set_properties = {&ignoreProperties, data};
    callbacks->delete_properties = {&ignoreDeletions, data};
    callbacks->get_properties = {&ignoreQuestion, data};
    return True;
}

Status SessionManager::Connections::enrol(SmsConn session, SmPointer data, char* previousId)
{
    std::free(previousId);
    char* id = SmsGenerateClientID(session);
    SmsRegisterClientReply(session, id);
    std::free(id);
    static_cast<Connections*>(data)->isRegistered = true;
    return True;
}

void SessionManager::Connections::noteSaved(SmsConn session, SmPointer data, Bool /*success*/)
{
    auto& connections = *static_cast<Connections*>(data);
    if (connections.isEnding)
        SmsDie(session);
    connections.hasSaved = true;
}

void SessionManager::Connections::takeMessages()
{
    for (int index = 0; index < listenerCount && !program; ++index) {
        if (!isReadable(IceGetListenConnectionNumber(listeners[index])))
            continue;
        IceAcceptStatus status = IceAcceptFailure;
        program = IceAcceptConnection(listeners[index], &status);
    }
    if (program && isReadable(IceConnectionNumber(program))
        && IceProcessMessages(program, nullptr, nullptr) != IceProcessMessagesSuccess)
        close();
}

void SessionManager::Connections::close()
{
    if (session)
        SmsCleanUp(std::exchange(session, nullptr));
    if (!program)
        return;
    // The program is gone: nobody would answer.
    IceSetShutdownNegotiation(program, False);
    IceCloseConnection(std::exchange(program, nullptr));
}

SessionManager::SessionManager()
    : m_connections(std::make_unique<Connections>())
{
    std::array<char, 256> error{};
    IceSetIOErrorHandler(&outliveProgram);
    static const bool isReady
        = SmsInitialize("SpoolwrightTests", "1", &Connections::welcome, m_connections.get(),
              &trustEverybody, error.size(), error.data())
        != 0;
    if (!isReady
        || IceListenForConnections(
               &m_connections->listenerCount, &m_connections->listeners, error.size(), error.data())
            == 0)
        qFatal("No session manager: %s", error.data());
    for (int index = 0; index < m_connections->listenerCount; ++index)
        IceSetHostBasedAuthProc(m_connections->listeners[index], &trustEverybody);
}

SessionManager::~SessionManager()
{
    m_connections->close();
    IceFreeListenObjs(m_connections->listenerCount, m_connections->listeners);
}

QString SessionManager::address() const
{
    char* addresses
        = IceComposeNetworkIdList(m_connections->listenerCount, m_connections->listeners);
    QString address = QString::fromLocal8Bit(addresses);
    std::free(addresses);
    return address;
}

bool SessionManager::waitForProgram()
{
    return waitUntil([this] {
        m_connections->takeMessages();
        return m_connections->isRegistered;
    });
}

bool SessionManager::endSession(std::chrono::milliseconds limit)
{
    m_connections->isEnding = true;
    SmsSaveYourself(m_connections->session, SmSaveBoth, True, SmInteractStyleAny, False);
    return waitUntil(
        [this] {
            m_connections->takeMessages();
            return m_connections->hasSaved;
        },
        limit);
}

} // namespace reelhouse::tests
