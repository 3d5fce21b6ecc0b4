#pragma once

namespace paperkite {

/// The base of everything whose setters tell a view: they leave an unchanged value alone, assign,
/// and tell, in this order.
class Changing {
public:
    virtual ~Changing() = default;

protected:
    Changing() = default;
    Changing(const Changing&) = delete;
    Changing& operator=(const Changing&) = delete;

    virtual void TellChanged() = 0;

    /// True when the value was a new one, for the caller to raise what follows from it.
    template <class Field, class Given>
    bool Assign(Field& field, const Given& value) {
        if (field == value) return false;
        field = value;
        TellChanged();
        return true;
    }
};

} // namespace paperkite
