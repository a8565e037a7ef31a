// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The program as it is, but built for a feed of the test's. Where that is, and whose certificate it has, the test says
// in the environment: nothing that users run listens to that.

#include "ui/shell/program.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(qEnvironmentVariable("LEXIVORE_PROBE_CERTIFICATE")));
    QSslConfiguration::setDefaultConfiguration(configuration);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    QFile file(qEnvironmentVariable("LEXIVORE_PROBE_INFORMATION"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 1;
    }
    return lexivore::runProgram(application, QJsonDocument::fromJson(file.readAll()).object().toVariantMap());
}
