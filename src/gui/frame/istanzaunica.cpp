#include "istanzaunica.h"

#include "programma.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QPointer>
#include <memory>

namespace {

constexpr char Richiesta[] = "mostra\n";
constexpr int Attesa = 2000;

void ChiediDiMostrare(const QString& indirizzo) {
    QLocalSocket presa;
    presa.connectToServer(indirizzo);
    // A first instance still starting, or one that could not listen, is left as it is.
    if (!presa.waitForConnected(Attesa))
        return;
    presa.write(Richiesta);
    presa.waitForBytesWritten(Attesa);
    presa.disconnectFromServer();
}

void Rispondi(QLocalServer& server, const std::function<void()>& mostra) {
    while (QLocalSocket* presa = server.nextPendingConnection()) {
        QObject::connect(presa, &QLocalSocket::disconnected, presa, &QObject::deleteLater);
        QObject::connect(presa, &QLocalSocket::readyRead, presa, [presa, mostra] {
            if (presa->canReadLine() && presa->readLine() == Richiesta)
                mostra();
        });
    }
}

void Ascolta(const QString& indirizzo, std::function<void()> mostra) {
    static QPointer<QLocalServer> server;
    delete server.data();
    server = new QLocalServer(QCoreApplication::instance());
    server->setSocketOptions(QLocalServer::UserAccessOption);
    // The lock is ours, so a socket found there was left by a run that ended badly.
    QLocalServer::removeServer(indirizzo);
    // Unable to listen, the program still runs; a later start then just ends.
    if (!server->listen(indirizzo))
        return;
    QLocalServer* attivo = server.data();
    QObject::connect(attivo, &QLocalServer::newConnection, attivo,
                     [attivo, mostra = std::move(mostra)] { Rispondi(*attivo, mostra); });
}

} // namespace

bool PrimaIstanza(std::function<void()> mostra) {
    const QString cartella = QFileInfo(Programma::FileIstanza()).absolutePath();
    static std::unique_ptr<QLockFile> blocco;
    blocco = std::make_unique<QLockFile>(Programma::FileIstanza());
    blocco->setStaleLockTime(0);
    const QString indirizzo = cartella + QStringLiteral("/orvix.presa");
    if (!blocco->tryLock(0)) {
        ChiediDiMostrare(indirizzo);
        return false;
    }
    Ascolta(indirizzo, std::move(mostra));
    return true;
}
