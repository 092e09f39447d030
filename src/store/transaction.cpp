#include "store/transaction.h"
#include "store/connection.h"

namespace {

cWorkspace* workspace()
{
    return gConnection && gConnection->getConnection() ? &gConnection->getWorkSpace() : nullptr;
}

// Ends whatever transaction is open on the data file: committed if possible, else rolled back.
void endOpenTransaction()
{
    cWorkspace* ws = workspace();
    if (ws && ws->inTransaction() && !ws->CommitTrans())
        ws->Rollback();
}

} // namespace

cTransaction::cTransaction(Ending ending) : m_ending(ending)
{
    cWorkspace* ws = workspace();
    m_open = ws && ws->BeginTrans();
}

cTransaction::~cTransaction()
{
    if (!m_open)
        return;
    if (m_ending == Ending::AlwaysCommit)
        commit();
    else
        rollback();
}

bool cTransaction::commit()
{
    if (!m_open)
        return false;
    m_open = false;
    cWorkspace* ws = workspace();
    if (!ws || !ws->inTransaction())
        return false;
    if (ws->CommitTrans())
        return true;
    ws->Rollback();
    return false;
}

void cTransaction::rollback()
{
    if (!m_open)
        return;
    m_open = false;
    cWorkspace* ws = workspace();
    if (ws && ws->inTransaction())
        ws->Rollback();
}

void cTransaction::pause()
{
    if (!m_open)
        return;
    commit();
    m_paused = true;
}

void cTransaction::resume()
{
    if (!m_paused)
        return;
    m_paused = false;
    endOpenTransaction();
    cWorkspace* ws = workspace();
    m_open = ws && ws->BeginTrans();
}
