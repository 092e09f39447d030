#include "exchange/import.h"
#include "base/input_file.h"
#include "base/messages.h"
#include "base/runtime_error.h"
#include "league/car.h"
#include "league/team_car.h"
#include "racing/races.h"
#include "racing/results.h"
#include "store/variant.h"

#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The fields of one line, read by position with the file's rules. Every reader raises
// cRuntimeError with a description that says which field is wrong and why.
class cImportFields {
public:
    explicit cImportFields(const QString& line) : m_fields(line.split(u';')) {}

    qsizetype size() const { return m_fields.size(); }

    // A record of the type needs this many fields; fewer is a short record.
    void require(qsizetype count, int16_t recordType) const
    {
        if (m_fields.size() < count)
            throw cRuntimeError(9, u"a record "_s + QString::number(recordType) + u" needs "_s + QString::number(count) +
                                       u" fields, this one has "_s + QString::number(m_fields.size()));
    }

    const QString& raw(qsizetype index) const { return m_fields.at(index); }

    // A text between two delimiter characters, which are cut off without looking at them.
    QString text(qsizetype index) const
    {
        const QString& field = raw(index);
        if (field.isEmpty())
            return {};
        if (field.size() == 1)
            throw cRuntimeError(5, u"field "_s + QString::number(index) + u" (\""_s + field +
                                       u"\") is one character, not a text between two delimiters"_s);
        return field.mid(1, field.size() - 2);
    }

    int16_t number(qsizetype index) const
    {
        try {
            return cVariant(raw(index)).toInt16();
        } catch (const cRuntimeError& e) {
            throw cRuntimeError(e.number(), u"field "_s + QString::number(index) + u" (\""_s + raw(index) +
                                                u"\") is not a whole number from -32768 to 32767"_s);
        }
    }

    double real(qsizetype index) const
    {
        try {
            return cVariant(raw(index)).toDouble();
        } catch (const cRuntimeError& e) {
            throw cRuntimeError(e.number(), u"field "_s + QString::number(index) + u" (\""_s + raw(index) +
                                                u"\") is not a number"_s);
        }
    }

private:
    QStringList m_fields;
};

// Record 13, read whole before anything is written.
struct ResultRecord {
    int16_t raceStatusNmbr = 0;
    cResults result;
};

ResultRecord readResult(const cImportFields& fields)
{
    fields.require(9, 13);
    ResultRecord record;
    record.raceStatusNmbr = fields.number(1);
    record.result.setRaceNmbr(fields.number(2));
    record.result.setCarNmbr(fields.number(3));
    record.result.setPlace(fields.number(4));
    record.result.setQualified(fields.number(5));
    record.result.setFastQual(fields.number(6));
    record.result.setLapsLead(fields.number(7));
    record.result.setAdjustment(fields.number(8));
    return record;
}

void importCar(const cImportFields& fields)
{
    fields.require(9, 11);
    cCar car;
    car.setCarNmbr(fields.number(1));
    car.setCarTypeNmbr(fields.number(2));
    car.setRaceTypeNmbr(fields.number(3));
    const QString carTxt = fields.text(4);
    const QString carOwner = fields.text(5);
    const QString carMake = fields.text(6);
    const QString sponsor = fields.text(7);
    const QString driverName = fields.text(8);
    if (!fields.raw(4).isEmpty())
        car.setCarTxt(carTxt);
    if (!fields.raw(5).isEmpty())
        car.setCarOwner(carOwner);
    if (!fields.raw(6).isEmpty())
        car.setCarMake(carMake);
    if (!fields.raw(7).isEmpty())
        car.setSponsor(sponsor);
    if (!fields.raw(8).isEmpty())
        car.setDriverName(driverName);
    // Insert-then-update: a new car comes in with no group and no salary; an existing one keeps
    // its group and salary.
    car.insert();
    car.updateImportRow();
}

void importRace(const cImportFields& fields)
{
    fields.require(7, 12);
    cRaces race;
    race.setRaceNmbr(fields.number(1));
    const QString raceName = fields.text(2);
    const QString trackName = fields.text(3);
    const QString raceDate = fields.raw(4);
    race.setRaceTypeNmbr(fields.number(5));
    race.setCarTypeNmbr(fields.number(6));
    if (!fields.raw(2).isEmpty())
        race.setRaceName(raceName);
    if (!fields.raw(3).isEmpty())
        race.setTrackName(trackName);
    race.setRaceDate(raceDate);   // a text that is no date leaves the date unset
    // A calendar file carries no status: a race already in the file keeps the one it has.
    if (cRaces stored; stored.load(race.raceNmbr()) == 1)
        race.setRaceStatusNmbr(stored.raceStatusNmbr());
    race.insert();
    race.updateRow();
}

void importResult(const cImportFields& fields)
{
    ResultRecord record = readResult(fields);
    cRaces race;
    if (race.load(record.result.raceNmbr()) == 1 && race.raceStatusNmbr() != record.raceStatusNmbr) {
        race.setRaceStatusNmbr(record.raceStatusNmbr);
        race.updateRow();
    }
    record.result.insertRow();
    record.result.updateRow();
}

void importRosterEntry(const cImportFields& fields)
{
    fields.require(7, 14);
    cTeamCar entry;
    entry.setTeamNmbr(fields.number(1));
    entry.setCarNmbr(fields.number(2));
    const QString efctvDt = fields.raw(3);
    const QString termDt = fields.raw(4);
    entry.setPrice(fields.real(5));
    entry.setLockedSalary(fields.real(6));
    entry.setEfctvDt(efctvDt);   // a text that is no date leaves the date empty: termDt stays open
    entry.setTermDt(termDt);
    entry.insertRow();
    entry.updateRow();
}

// The race a results file replaces: field 2 (the race number) of its first record, when that
// line is a complete record 13 that the loop will import. 0 when the file is no results file.
int16_t raceReplacedBy(const QStringList& lines)
{
    if (lines.size() < 2)
        return 0;
    const cImportFields first(lines.first());
    if (first.size() < 2)
        return 0;
    try {
        if (first.number(0) != 13)
            return 0;
        return readResult(first).result.raceNmbr();
    } catch (const cRuntimeError&) {
        return 0;   // the loop stops at this line and says why; nothing is cleared
    }
}

} // namespace

void importLine(const QString& line)
{
    const cImportFields fields(line);
    if (fields.size() < 2)
        return;
    switch (fields.number(0)) {
    case 11:
        importCar(fields);
        break;
    case 12:
        importRace(fields);
        break;
    case 13:
        importResult(fields);
        break;
    case 14:
        importRosterEntry(fields);
        break;
    default:
        messageBox(u"Invalid file format.\r\nDo you have the most current version of Lapkeeper?"_s, u"Lapkeeper"_s,
                   Icon::None, Buttons::Ok);
        break;
    }
}

bool importFile(const QString& path)
{
    const int channel = openInputFile(path);
    if (fileErrorSet())
        return false;
    const QString text = readWholeFile(channel);
    if (fileErrorSet()) {
        closeInputFile(channel);
        return false;
    }
    // What follows the last CR LF is not a line: a file must end in CR LF.
    const QStringList lines = text.split(u"\r\n"_s);

    if (const int16_t raceNmbr = raceReplacedBy(lines); raceNmbr != 0) {
        cResultsCollection results;
        results.deletePosting(raceNmbr);
        results.deleteResults(raceNmbr);
    }

    bool complete = true;
    for (qsizetype i = 0; i + 1 < lines.size(); ++i) {
        try {
            importLine(lines.at(i));
        } catch (const cRuntimeError& e) {
            showErrorMessage(u"Line "_s + QString::number(i + 1) + u" of "_s + QFileInfo(path).fileName() +
                             u" could not be imported: "_s + e.description() +
                             u".\n\nThe import stopped at that line; the lines before it were imported."_s);
            complete = false;
            break;
        }
    }
    closeInputFile(channel);
    return complete;
}
