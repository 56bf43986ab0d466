#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>

/// A web server on this computer that answers as a test says, byte by byte.
class FakeWebServer : public QTcpServer {
public:
    using Answer = std::function<void(QTcpSocket &)>;

    FakeWebServer()
    {
        if (!listen(QHostAddress::LocalHost)) qFatal("The test server cannot listen");
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { hear(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }

    QUrl url(const char *path) const
    {
        return QUrl{QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(QLatin1StringView{path})};
    }

    void answer(const char *path, Answer answer) { m_answers.insert(path, std::move(answer)); }
    /// The whole of it; the connection ends then.
    void answer(const char *path, const QByteArray &bytes)
    {
        answer(path, [bytes](QTcpSocket &socket) {
            socket.write(bytes);
            socket.disconnectFromHost();
        });
    }
    void redirect(const char *path, const QByteArray &target)
    {
        answer(path, "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nConnection: close\r\nLocation: " + target +
                         "\r\n\r\n");
    }

    QByteArrayList heard; ///< each request with its header, in the order in which they came

private:
    void hear(QTcpSocket &socket)
    {
        QByteArray &request = m_requests[&socket];
        request += socket.readAll();
        if (!request.contains("\r\n\r\n")) return;
        heard << std::exchange(request, {});
        m_requests.remove(&socket);
        const Answer answer = m_answers.value(heard.last().split(' ').value(1));
        if (answer) answer(socket);
    }

    QHash<QByteArray, Answer> m_answers;
    QHash<QTcpSocket *, QByteArray> m_requests;
};
