#pragma once
// Keeps one running Zonara per user: a second start brings the first forward.

#include <QLocalServer>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace zonara {

class SingleInstance : public QObject {
    Q_OBJECT
  public:
    enum class Outcome { FirstInstance, OtherInstanceRaised, StartedAnyway };

    // The name is the application title; the user's id is added so that two
    // users of one machine do not meet.
    explicit SingleInstance(const QString& title, QObject* parent = nullptr);

    // Up to `tries` times, 100 ms apart: hand over to a running instance, or
    // become the one. After the last try this instance starts anyway.
    Outcome claim(int tries = 25);

    // Called in the first instance when another start asks it to come forward.
    void onRaiseRequest(std::function<void()> handler) { raise = std::move(handler); }

    const QString& serverName() const { return name; }

  private:
    bool askRunningInstance();
    bool listen();

    QString name;
    std::unique_ptr<QLocalServer> server;
    std::function<void()> raise;
};

} // namespace zonara
