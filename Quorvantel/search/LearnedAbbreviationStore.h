#pragma once

#include "search/JsonFile.h"
#include "search/JsonMembers.h"

#include <QHash>
#include <QString>

namespace quorvantel {

/// Which targets the user picked for which query, although the ranking had put another one first.
/// Each such pick strengthens the association by one; it halves every thirty days.
///
/// Queries are compared in a normalised form: without surrounding white space and newlines, and in
/// lower case. Queries of fewer than two characters (grapheme clusters, Unicode Standard Annex 29)
/// are neither learned nor boosted.
///
/// The table lives in memory and in "abbreviations.json" in the store's directory, a JSON object
/// (RFC 8259) such as `{"ch":{"org.example.Chess":{"weight":1,"lastUpdate":785000000}}}`. A missing
/// file starts the store empty, and so does one that cannot be read or holds anything else, which
/// logs one line. A failed save logs one line, and the table in memory stays valid.
///
/// Main thread only. Dates are seconds since 2001-01-01 00:00:00 UTC.
class LearnedAbbreviationStore {
public:
    /// How strong an association was at the moment of the last pick.
    struct Entry {
        double weight;
        /// Seconds since 2001-01-01 00:00:00 UTC.
        double lastUpdate;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// The entries of one normalised query, by target identifier.
    using Associations = QHash<QString, Entry>;

    /// The boosts for one query at one moment. Looking up many targets normalises the query once.
    class Boosts {
    public:
        /// What to add to the score of a target; 0 if it was never learned for the query.
        double operator[](const QString& id) const;

        /// Whether no target was learned for the query.
        bool isEmpty() const { return m_associations.isEmpty(); }

    private:
        friend class LearnedAbbreviationStore;
        Boosts(Associations associations, double date);

        Associations m_associations;
        double m_date;
    };

    /// Loads the table from the directory, which need not exist.
    explicit LearnedAbbreviationStore(const QString& storeDirectory);

    /// Records that the target was picked for the query at `date` and saves. Does nothing for a
    /// query that is too short.
    void learn(const QString& query, const QString& id, double date);

    /// What to add to the score of a target for the query at `date`.
    double boost(const QString& query, const QString& id, double date) const;

    /// All boosts for the query at `date`. A later change of the store does not affect them.
    Boosts boosts(const QString& query, double date) const;

    /// Forgets everything and saves.
    void reset();

    /// The associations by normalised query.
    const QHash<QString, Associations>& table() const { return m_table; }

private:
    void load();

    JsonFile m_file;
    QHash<QString, Associations> m_table;
    /// The table as it is in the file.
    JsonMembers m_members;
};

} // namespace quorvantel
