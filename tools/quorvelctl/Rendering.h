#pragma once

#include <QJsonValue>
#include <QString>

namespace quorvel::ctl {

/// Each gives a result as the user wants to read it.

QString nothing(const QJsonValue& result);
QString line(const QJsonValue& result);
QString clipList(const QJsonValue& result);
QString snippetList(const QJsonValue& result);
QString foundList(const QJsonValue& result);
QString layoutList(const QJsonValue& result);

/// Nested values as indented lines "name: value".
QString outline(const QJsonValue& result);

QString json(const QJsonValue& result);

} // namespace quorvel::ctl
