#pragma once

#include "core/LifeToken.h"
#include "core/PointInfo.h"
#include "core/zk_curve_core_export.h"

#include <iosfwd>
#include <memory>
#include <vector>

class FunctionFloatBase;

/// A keyed curve: keys ascending in time, and a behaviour before the first and after the last.
class ZK_CURVE_CORE_EXPORT SplineBase
{
public:
    enum nodeType : int
    {
        zero = 0,
        constant = 1,
        loop = 2,
        loopOffset = 3,
        followTangent = 4
    };

    SplineBase();
    SplineBase(const SplineBase& other);
    SplineBase& operator=(const SplineBase& other);
    ~SplineBase();

    unsigned getControlPointsNumber() const;
    const std::vector<PointInfo*>& getControlPoints();
    const PointInfo* operator[](const unsigned& index) const;
    PointInfo* at(const unsigned& index) const;
    const PointInfo* getFirst();
    const PointInfo* getLast();
    void clearCtrlPoints();
    const int findIndex(const PointInfo* point);

    void copyPoint(const PointInfo* target, const PointInfo* source);
    void copyPointNoUpdate(PointInfo* target, const PointInfo* source);
    void setPos(const PointInfo* point, const double& value);
    void setTime(const PointInfo* point, const double& time);
    void setType(const PointInfo* point, const zk_spline::interpolationType& type);
    void breakTangent(const PointInfo* point);
    void unifyTangent(const PointInfo* point);
    void setInterpolationType(const PointInfo* point, zk_spline::interpolationType type);
    void setInterpolationType(unsigned index, zk_spline::interpolationType type);
    void setTanLeft(const PointInfo* point, const double& slope);
    void setTanRight(const PointInfo* point, const double& slope);
    void setTcb(const PointInfo* point, const PointInfo::TcbData& data);
    void setTcb(unsigned index, const PointInfo::TcbData& data);
    void setBezier(const PointInfo* point, const PointInfo::BezierData& data);
    void setBezier(unsigned index, const PointInfo::BezierData& data);

    const double getDefaultValue() const;
    void setDefaultValue(double value);
    const bool isAddFunc() const;
    void setAddFunc(const bool& add);
    const bool hasChanged() const;
    void setChanged(const bool& change);
    nodeType firstNodeType() const;
    nodeType lastNodeType() const;
    void setFirstNodeType(nodeType type);
    void setLastNodeType(nodeType type);

    void addPoint(const double& time, const double& value);
    PointInfo* addPointPtr(PointInfo* point);
    void remove(const PointInfo* point);
    void removeAllControlPoints();

    const double operator()(const double& time) const;
    const double operator()(const double& time, FunctionFloatBase* expression,
                            const double& fps) const;
    const double getTangentLeftAtNode(const unsigned& index, double& len) const;
    const double getTangentRightAtNode(const unsigned& index, double& len) const;
    const PointInfo* getPrev(const double& time);
    const PointInfo* getNext(const double& time);

    void copy(const SplineBase& source);
    void copyRefs(const SplineBase& source);
    void copyDup(const SplineBase& source, const double& offset);
    void copySelected(const SplineBase& source, const std::vector<const PointInfo*>& points);
    std::vector<const PointInfo*> combine(const SplineBase& source, const double& offset);
    void reset();

    static void save(SplineBase& spline, std::ofstream& stream);
    static void load(SplineBase* spline, std::ifstream& stream);

    /// Expires when the spline is destroyed: whoever keeps a pointer to a spline of somebody
    /// else's keeps this beside it.
    std::weak_ptr<const void> watchLife() const;
};
