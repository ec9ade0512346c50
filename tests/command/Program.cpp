// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

#if defined(Q_OS_UNIX)
#include <csignal>
#endif

namespace rvopen::test {

namespace {

/// What is ignored stays so in all that is started, and could be reset by no shell.
void resetSignals()
{
#if defined(Q_OS_UNIX)
    for (const int signal : {SIGINT, SIGHUP, SIGTERM, SIGQUIT, SIGPIPE, SIGXFSZ})
        std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
#endif
}

} // namespace

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
Child::Child() = default;

void Child::setupChildProcess()
{
    resetSignals();
}
#else
Child::Child()
{
#if defined(Q_OS_UNIX)
    setChildProcessModifier(resetSignals);
#endif
}
#endif

QStringList Outcome::lines() const
{
    return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QJsonObject Outcome::json() const
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << out.toStdString() << err.toStdString();
    return document.object();
}

QStringList words(const char* line)
{
    QStringList list;
    QString word;
    bool isWord = false;
    QChar quote;
    for (const QChar c : QString::fromUtf8(line)) {
        const bool isQuote = c == QLatin1Char('\'') || c == QLatin1Char('"');
        if (!quote.isNull() && c == quote) {
            quote = QChar();
        } else if (quote.isNull() && isQuote) {
            quote = c;
            isWord = true;
        } else if (quote.isNull() && c == QLatin1Char(' ')) {
            if (isWord)
                list << word;
            word.clear();
            isWord = false;
        } else {
            word += c;
            isWord = true;
        }
    }
    EXPECT_TRUE(quote.isNull()) << "a quote is open in: " << line;
    if (isWord)
        list << word;
    return list;
}

Workspace::Workspace()
    : environment(QProcessEnvironment::systemEnvironment())
{
    for (const char* name : {"RVOPEN_INSTALL", "RVOPEN_ARCHIVES", "RVOPEN_CUSTOM",
                             "RVOPEN_SNAPSHOTS", "NO_COLOR", "QT_QPA_PLATFORM", "DISPLAY"})
        environment.remove(QLatin1String(name));
    // What one test leaves must not answer another.
    environment.insert(QStringLiteral("RVOPEN_CATALOGUE"), QStringLiteral("off"));
    const QString folder = QFileInfo(QStringLiteral(RVOPEN_COMMAND)).path();
    environment.insert(QStringLiteral("PATH"),
                       folder + QLatin1Char(':') + environment.value(QStringLiteral("PATH")));
}

QString Workspace::path(const QString& name) const
{
    return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
}

QString Workspace::write(const QString& name, const QByteArray& bytes) const
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
    return name;
}

QByteArray Workspace::read(const QString& name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

bool Workspace::exists(const QString& name) const
{
    return QFileInfo::exists(path(name));
}

QStringList Workspace::files() const
{
    QStringList names;
    QDirIterator it(path(), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        names << QDir(path()).relativeFilePath(it.next());
    std::sort(names.begin(), names.end());
    return names;
}

void Workspace::copySamples(Pictures pictures) const
{
    const QDir samples(QStringLiteral(RVOPEN_DATA_DIR));
    QDirIterator it(samples.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        // Many, and hardly a test asks for them.
        if (pictures == Pictures::LeftOut && file.contains(QLatin1String("/sethumbs/")))
            continue;
        const QString target = path(samples.relativeFilePath(file));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(target).path()));
        EXPECT_TRUE(QFile::copy(file, target));
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    }
}

Outcome Workspace::run(const QStringList& arguments, const QByteArray& input) const
{
    return start(QStringLiteral(RVOPEN_COMMAND), arguments, input);
}

Outcome Workspace::run(const char* line, const QByteArray& input) const
{
    return run(words(line), input);
}

Outcome Workspace::shell(const QString& line, const QByteArray& input) const
{
    return start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), line}, input);
}

Outcome Workspace::traced(const QString& options, const QString& line, QString& trace) const
{
    // Beside the folder, whose files the tests look at.
    const QString file = path() + QLatin1String(".trace");
    // Looking for leaks, a sanitizer would trace the process itself.
    const Outcome run =
        shell(QStringLiteral("ASAN_OPTIONS=\"${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0\" "
                             "strace -f -qq -s 4096 -o '%1' %2 %3")
                  .arg(file, options, line));
    QFile traced(file);
    EXPECT_TRUE(traced.open(QIODevice::ReadOnly)) << run.err.toStdString();
    trace = QString::fromUtf8(traced.readAll());
    traced.remove();
    return run;
}

Outcome Workspace::start(const QString& program, const QStringList& arguments,
                         const QByteArray& input) const
{
    Child process;
    process.setWorkingDirectory(path());
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(120000));
    Outcome result;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    if (process.exitStatus() == QProcess::NormalExit)
        result.code = process.exitCode();
    return result;
}

QByteArray pictureOf(const QByteArray& pixels)
{
    return "P5\n" + QByteArray::number(int(pixels.size())) + " 1\n255\n" + pixels;
}

::testing::AssertionResult isOfSchema(const Outcome& run, const QString& schema)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("instance.json")));
    if (!file.open(QIODevice::WriteOnly))
        return ::testing::AssertionFailure() << "no file for the output";
    file.write(run.out.toUtf8());
    file.close();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    // The one whose packages come from the system.
    const QString python = QStringLiteral("/usr/bin/python3");
    process.start(
        QFile::exists(python) ? python : QStringLiteral("python3"),
        {QStringLiteral("-W"), QStringLiteral("ignore"), QStringLiteral("-m"),
         QStringLiteral("jsonschema"), QStringLiteral("-i"), file.fileName(),
         QStringLiteral(RVOPEN_SCHEMA_DIR "/") + schema + QStringLiteral(".schema.json")});
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return ::testing::AssertionFailure()
               << process.readAll().toStdString() << run.err.toStdString();
    return ::testing::AssertionSuccess();
}

QByteArray smallDocument()
{
    return R"(<?xml version="1.0" encoding="utf-8"?>
<snapRoot name="SnapRoot" type="snapStudio" unitsScale="10" zorvane_version="3.1">
  <snapshots name="Model SnapShots">
    <snapshot name="Front / left">
      <snapShotSettings>
        <param name="Twist" type="float" val="0"/>
      </snapShotSettings>
      <camera name="Eye" refname="camera.eye">
        <param name="From" type="point" val="1 2 3"/>
        <param name="Orthographic" type="boolean" val="0"/>
        <param name="Field Of View" rangeMax="120" rangeMin="10" type="float" val="45"/>
        <param name="Near" prop="D" type="float" val="5"/>
        <param name="Far" prop="R" type="float" val="100"/>
      </camera>
    </snapshot>
    <snapshot name="Größe">
      <snapShotSettings>
        <param name="Reflected Env Path" type="string" val="C:\env\sky.hdr"/>
      </snapShotSettings>
      <camera>
        <param name="Field Of View" type="float" val="30"/>
      </camera>
      <background subcat="Plain">
        <param name="Colour" type="colour" val="1 0.5 0"/>
      </background>
      <renderTargets>
        <renderTarget subcat="Image">
          <param name="Width" type="integer" val="640"/>
        </renderTarget>
      </renderTargets>
    </snapshot>
  </snapshots>
</snapRoot>
)";
}

QByteArray smallArchive()
{
    return R"(<?xml version="1.0" encoding="utf-8"?>
<presets name="Mine" type="UserArchives" zorvane_version="3.1">
   <materials name="Materials">
      <dir name="Metals">
         <material cat="Metals" desc="Shiny and yellow" name="Brass" refname="m.brass" subcat="Opaque">
            <finish shaderClass="lit appearance">
               <param name="roughness" type="float" val="0.1"/>
            </finish>
         </material>
         <material cat="Metals" desc="Grey" name="Zinc" refname="m.zinc" subcat="Opaque"/>
      </dir>
      <material cat="Glass" name="Window" refname="m.window" subcat="Transparent"/>
   </materials>
   <cameras name="Cameras">
      <camera cat="Cameras" name="Above" refname="c.above">
         <param name="Field Of View" type="float" val="30"/>
      </camera>
   </cameras>
</presets>
)";
}

QByteArray largeArchive(int presets)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets name=\"Large\" "
                     "type=\"UserArchives\" zorvane_version=\"3.1\">\n<materials>\n";
    for (int i = 0; i < presets; ++i) {
        const QByteArray number = QByteArray::number(i);
        if (i % 100 == 0)
            xml += (i ? "</dir>\n<dir name=\"" : "<dir name=\"") + number + "\">\n";
        xml += "<material name=\"Material " + number + "\" refname=\"m." + number +
               "\"><finish shaderClass=\"lit appearance\"><param name=\"roughness\" type=\"float\" "
               "val=\"0.5\"/></finish></material>\n";
    }
    return xml + "</dir>\n</materials>\n</presets>\n";
}

QByteArray declaringAPrefix(QByteArray document)
{
    const QByteArray plain = document;
    document.replace("<snapRoot", "<snapRoot xmlns:p=\"p\"")
        .replace("<presets", "<presets xmlns:p=\"p\"");
    EXPECT_NE(document, plain);
    return document;
}

} // namespace rvopen::test
