// Downloads three values: two registers that touch, and one apart.
#include <tarvelan_kx_series.h>

#include <cstdio>
#include <vector>

static _RCP_VAR_PRO variable(int address, int offset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.rcpId = 1; // the link number given at initialisation
    variable.station = 1;
    variable.regType = QString::fromLatin1("D");
    variable.address = address;
    variable.count = 1;
    variable.bufOffset = offset; // in 16-bit words
    return variable;
}

int main()
{
    std::vector<unsigned char> shared(60117, 0);
    std::vector<unsigned short> buffer(100, 0);
    QMutex mutex;
    intf_initProperty(shared.data(), nullptr, buffer.data(), nullptr, "1#0#0#3#32", &mutex);

    // [example]
    QVector<_RCP_VAR_PRO> variables;
    variables << variable(100, 0) << variable(101, 1) << variable(10, 2);
    const int kept = intf_setRcpAddress(variables);
    buffer[0] = 500;
    buffer[1] = 501;
    buffer[2] = 50;
    {
        const QMutexLocker lock(&mutex);
        shared[60115] = 1; // request the download; the driver clears it at the end
    }
    // [/example]

    std::printf("%d variables, %d blocks\n", kept, int(driver.rcpVars.size()));
    FRAME_PRO request = FRAME_PRO();
    QString error;
    // What a controller would answer: D10 written, then two registers from D100 on.
    const char* const replies[] = {"0106 000A 0032 281D", "0110 0064 0002 0017"};
    for (const char* const hex : replies) {
        intf_getSendFrame(&request);
        std::printf("%s\n",
                    QByteArray(reinterpret_cast<const char*>(request.frame), request.sendLen)
                        .toHex()
                        .constData());
        QByteArray reply = QByteArray::fromHex(hex);
        const int result = intf_dealRcvFrame(reply, error);
        std::printf("result %d, request byte %d\n", result, shared[60115]);
    }
}
