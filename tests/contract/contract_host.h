#ifndef TESTS_CONTRACT_CONTRACT_HOST_H
#define TESTS_CONTRACT_CONTRACT_HOST_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// The smallest host that can open a library: the device's files in memory, the local side on this computer's disk.
/// One is alive at a time.
class ContractHost
{
public:
    ContractHost();
    ~ContractHost();

    QMap<QByteArray, QByteArray> deviceFiles; ///< content by path on the device
    QStringList log;                          ///< "TAG LEVEL MESSAGE"
    int openHandles = 0;                      ///< devices and files that are open now

    static ContractHost *current();
};

#endif
