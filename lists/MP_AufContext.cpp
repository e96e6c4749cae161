#include "lists/MP_AufContext.h"

#include <cstdlib>

#include "platform/Metadata.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AufContextTrace, "MP_AufContext")

int MP_AufContext::shuffle = 0;
int MP_AufContext::shuffleSetting = 0;
bool MP_AufContext::isRepeat = false;
const MP_AufList* MP_AufContext::subscriber = nullptr;

MP_AufContext::MP_AufContext() : m_handle(0)
{
    metadataInitialize();
    int status = 0;
    // The status word is not examined: a failed connection yields handle 0,
    // which every search then reports as a failure.
    m_handle = metadataCreateClient(&status);
    AufContextTrace(3, "MP_AufContext: metadata client handle %u\n", m_handle);
}

MP_AufContext::~MP_AufContext()
{
    metadataDestroyClient(m_handle);
}

unsigned int MP_AufContext::getHandler()
{
    // Created on first use, destroyed at process exit.
    static MP_AufContext context;
    return context.m_handle;
}

int MP_AufContext::maxStorageLocation()
{
    const QByteArray text = getProfileItem(QStringLiteral("MF_FlexNumber"), QStringLiteral("StorageNumber")).toLatin1();
    return std::atoi(text.constData());
}
