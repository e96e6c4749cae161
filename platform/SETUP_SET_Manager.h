#pragma once
// The platform settings store: typed keys by group, one store per
// application id. Absent keys read as the caller's default.

#include <QString>
#include <QVariant>

class QSettings;

class SETUP_SET_Manager {
public:
    /** Opens the store of application @p appId. @p readOnly refuses writes. */
    SETUP_SET_Manager(int appId, bool readOnly);
    ~SETUP_SET_Manager();

    /** Reads @p key of @p group into @p value; returns false (and leaves
     *  @p value at @p defaultValue) when the key is absent. */
    bool getSettingInfo(const QString& group, const QString& key, bool& value, bool defaultValue = false) const;
    bool getSettingInfo(const QString& group, const QString& key, int& value, int defaultValue = 0) const;
    /** Writes a key durably; returns false when the store cannot be written. */
    bool setSettingInfo(const QString& group, const QString& key, bool value);
    bool setSettingInfo(const QString& group, const QString& key, int value);

private:
    bool write(const QString& group, const QString& key, const QVariant& value);
    int m_appId;
    bool m_readOnly;
    QSettings* m_settings;  // owned
    SETUP_SET_Manager(const SETUP_SET_Manager&) = delete;
    SETUP_SET_Manager& operator=(const SETUP_SET_Manager&) = delete;
};

/** Platform feature bits. */
class SETUP_Utility {
public:
    /** Reads feature bit @p bit of the phone's profile into @p value; false
     *  (and @p value untouched) when the profile cannot be read. */
    static bool getFlexBit(unsigned short bit, bool& value);
};

/** Profile item @p key of @p section as text; an empty string when absent. */
QString getProfileItem(const QString& section, const QString& key);
