#pragma once

class CurveNode;
class ParserScope;
class QString;
class ViewPort;

/// What curve objects ask of whoever shows them.
class CurveHost
{
public:
    CurveHost() = default;
    CurveHost(const CurveHost&) = delete;
    CurveHost& operator=(const CurveHost&) = delete;
    virtual ~CurveHost() = default;

    /// The view that the curves are drawn for; not owned, may be null.
    virtual ViewPort* view() const = 0;
    /// How many decimals the labels at selected keys have; a negative number is the toolkit's
    /// default, six.
    virtual int labelDecimals() const = 0;
    /// Whether the curve of that name, in the form of the parser, depends on itself. `offender`
    /// gets the dotted name of the curve whose expression closes the ring; else it stays.
    virtual bool dependsOnItself(const QString& parserName, QString& offender) const = 0;
    /// Whose names the curves' expressions read first; not owned, may be null.
    virtual const ParserScope* parserScope() const = 0;
    /// The curve asks for a key at the cursor.
    virtual void createNodeAtCursor(CurveNode* curve) = 0;
};
