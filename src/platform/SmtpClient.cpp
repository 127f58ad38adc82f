#include "platform/SmtpClient.h"

TSmtpClientFactory CreateSmtpClient = nullptr;

std::unique_ptr<TSmtpClient> NewSmtpClient() {
    return CreateSmtpClient ? CreateSmtpClient() : std::make_unique<TSmtpClient>();
}

void TSmtpClient::Connect() {
    Fire(OnConnectionFailed);
}

void TSmtpClient::Disconnect() {
    Connected = 0;
}

void TSmtpClient::SendMail() {
    Fire(OnConnectionRequired);
}
