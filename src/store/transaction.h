#pragma once

// A transaction on the data file for the length of a scope: it begins in the constructor.
//
// An ordinary guard rolls back in its destructor unless commit() was called, so a failed step,
// an early return or a run-time error thrown out of the scope never leaves the transaction open
// (the engine would then refuse the next BEGIN and keep every later write uncommitted).
//
// An always-committed guard commits in its destructor whatever happened. It only groups
// statements into one write of the file for speed: what it leaves is exactly what the same
// statements would leave if each committed by itself. Such a batch can be paused, so that
// statements it must not hold (the operator's script) run and commit one by one.
class cTransaction {
public:
    enum class Ending { RollBackUnlessCommitted, AlwaysCommit };

    explicit cTransaction(Ending ending = Ending::RollBackUnlessCommitted);
    ~cTransaction();
    cTransaction(const cTransaction&) = delete;
    cTransaction& operator=(const cTransaction&) = delete;

    // True while the guard holds an open transaction (false when the data file is closed, or
    // when the BEGIN was refused).
    bool active() const { return m_open; }

    // Commits; false when nothing was open or the engine refused, in which case what the guard
    // held is rolled back, so no transaction stays open.
    bool commit();
    // Undoes what the guard holds; the guard is closed afterwards.
    void rollback();

    // Commits what the guard holds so far; statements then commit one by one until resume.
    void pause();
    // Ends a pause: a transaction the paused statements left open is committed, then a new one
    // begins for the guard. Does nothing unless paused.
    void resume();

    // Pauses a guard for the length of a scope.
    class Pause {
    public:
        explicit Pause(cTransaction& transaction) : m_transaction(transaction) { m_transaction.pause(); }
        ~Pause() { m_transaction.resume(); }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        cTransaction& m_transaction;
    };

private:
    Ending m_ending;
    bool m_open = false;
    bool m_paused = false;
};
