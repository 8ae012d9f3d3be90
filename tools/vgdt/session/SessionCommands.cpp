#include "session/SessionCommands.h"

#include "Classes.h"
#include "literal/LiteralPrinter.h"
#include "session/CommandWords.h"
#include "session/SessionValues.h"
#include "text/TextDisplay.h"

#include <SampleClasses.h>
#include <callback/WaitForObserver.h>
#include <fmt/format.h>
#include <graphics/datatype/COSInterfaceDataType.h>
#include <graphics/datatype/CallbackExecutor.h>
#include <graphics/datatype/handles.h>
#include <handles/handle_table.h>
#include <sv/features.h>
#include <ut/console.h>
#include <ut/interrupts.h>
#include <vx/array.h>
#include <vx/errors.h>
#include <vx/scopes.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace vgdt {
namespace {

// --- arguments -----------------------------------------------------------------------------------

/// A living object.
SessionObject& objectArgument(Call& call, std::size_t index) {
  return requireObject(call, call.arguments[index]);
}

double numberArgument(Call& call, std::size_t index) {
  const vcos::ArrayOwner array = readValue(call, call.arguments[index]);
  const bool isNumber = vxGetClassID(array.get()) == vxDOUBLE_CLASS && vxIsScalar(array.get()) &&
                        !vxIsComplex(array.get());
  if (!isNumber)
    throw RequestError(
        fmt::format("a number is expected, not \"{}\"", shortened(call.arguments[index])));
  return vxGetScalar(array.get());
}

/// "on" or "off".
bool switchArgument(const Call& call, std::size_t index) {
  return call.arguments[index] == "on";
}

// --- objects -------------------------------------------------------------------------------------

void requireFreeName(const Call& call, std::string_view name) {
  if (const char* problem = problemOfName(name))
    throw RequestError(
        fmt::format("\"{}\" cannot be the name of an object: {}", shortened(name), problem));
  const SessionObject* const known = call.session.objects().find(name);
  if (known && known->isLiving())
    throw RequestError(
        fmt::format("there is an object \"{}\" already; its name is free when it has been deleted",
                    shortened(name)));
}

SessionResult createObject(Call& call) {
  const std::string_view name = call.arguments[0];
  const vcos::COSClass& ownClass = requireClass(call.arguments[1]);
  if (&ownClass == &call.session.objects().root().ownClass())
    throw RequestError("there is only one Root, the object \"root\"");
  requireFreeName(call, name);
  const SessionObject* const parent =
      call.arguments.size() > 2 ? &objectArgument(call, 2) : nullptr;
  SessionResult result = std::string(name);
  call.session.objects().add(std::string(name), ownClass, parent);
  return result;
}

SessionResult deleteObject(Call& call) {
  SessionObject& object = objectArgument(call, 0);
  if (&object == &call.session.objects().root()) throw RequestError("the root cannot be deleted");
  call.session.objects().remove(object);
  return {};
}

SessionResult listClasses(Call&) {
  return classNames();
}

SessionResult listObjects(Call& call) {
  return call.session.objects().livingNames();
}

// --- properties ----------------------------------------------------------------------------------

SessionResult setProperty(Call& call) {
  SessionObject& object = objectArgument(call, 0);
  vcos::COSPropInfo& property = requireProperty(object.ownClass(), call.arguments[1]);
  vcos::ArrayOwner array = readValue(call, call.arguments[2]);
  try {
    property.setFromArray(object.object().get(), array.get());
  } catch (...) {
    vxSetArrayScope(array.get(), 0);
    call.details.refused.emplace(ErrorDetails::RefusedValue{
        fmt::format("{}.{}", object.name(), property.getName()), typeOf(property),
        std::string(call.arguments[2]), std::move(array)});
    throw;
  }
  call.session.objects().noteParent(object);
  return {};
}

PropertyValue valueOf(const SessionObject& object, const vcos::COSPropInfo& property) {
  Type type = typeOf(property);
  ValueForm form = valueForm(type, property.getValue(object.object().get()));
  return {std::move(type.name), std::move(form)};
}

SessionResult getProperty(Call& call) {
  const SessionObject& object = objectArgument(call, 0);
  const vcos::COSClass& ownClass = object.ownClass();
  if (call.arguments.size() > 1)
    return valueOf(object, requireProperty(ownClass, call.arguments[1]));
  PropertyValues values;
  for (const std::string& name : propertyNames(ownClass))
    values.emplace_back(name, valueOf(object, requireProperty(ownClass, name)));
  return values;
}

// --- handles -------------------------------------------------------------------------------------

const vcos::COSTypeConversion& handleConversion() {
  return *vcos::COSTypeRepository::getConversion(
      vcos::COSNameID("double"),
      vcos::COSNameID(graphics::datatype::COSInterfaceDataType::kDottedName));
}

SessionResult numberOfObject(Call& call) {
  vcos::COSInterface* const object = objectArgument(call, 0).object().get();
  return handleConversion().to(vcos::COSValue::fromPointer(object)).asDouble();
}

SessionResult objectOfNumber(Call& call) {
  const vcos::COSValue number = vcos::COSValue::fromDouble(numberArgument(call, 0));
  const auto* const object = handleConversion().from(number).asPointer<vcos::COSInterface>();
  if (!object) return NoObject();
  return std::string(shownName(*object));
}

SessionResult destroyHandle(Call& call) {
  graphics::datatype::vcos_destroy_handle(numberArgument(call, 0));
  return {};
}

SessionResult numberFigure(Call& call) {
  static const vcos::COSNameID figureClass("vortil.ui.Figure");
  const SessionObject& figure = objectArgument(call, 0);
  if (!figure.ownClass().isA(figureClass))
    throw RequestError(
        fmt::format("only a Figure has a number of one's choice; \"{}\" is of class {}",
                    shortened(figure.name()), sample::shortName(figure.ownClass())));
  const double number = numberArgument(call, 1);
  if (!(number >= 1 && number <= INT_MAX) || std::trunc(number) != number)
    throw RequestError(fmt::format("the number of a figure is whole, from 1 to {}, not {}", INT_MAX,
                                   shortened(call.arguments[1])));
  if (handle2pointer(number))
    throw RequestError(
        fmt::format("the number {} is in use; \"destroyhandle {}\" frees it", number, number));
  graphics::datatype::assignFigureIntegerHandle(figure.object(), static_cast<int>(number));
  return {};
}

SessionResult trackHandles(Call& call) {
  graphics::datatype::test::enableDoubleHandleTracking(switchArgument(call, 0));
  return {};
}

// --- the host ------------------------------------------------------------------------------------

SessionResult switchFeature(Call& call) {
  const std::string name(call.arguments[0]);
  if (!isBareWord(name) || name.find('\0') != name.npos)
    throw RequestError(fmt::format("\"{}\" cannot be the name of a feature", shortened(name)));
  const int state = switchArgument(call, 1) ? 1 : 0;
  if (!svSetFeatureState(name.c_str(), state))
    svRegisterFeature(name.c_str(), state, nullptr, nullptr);
  return {};
}

SessionResult printValue(Call& call) {
  const vcos::ArrayOwner array = readValue(call, call.arguments[0]);
  const std::string text =
      isTextRow(array.get()) ? vxArrayToStdString(array.get()) : formatLiteral(array.get());
  // A NUL would end a piece.
  for (std::size_t begin = 0; begin < text.size();) {
    if (begin != 0) utPrintf("%c", '\0');
    const char* const piece = text.c_str() + begin;
    utPrintf("%s", piece);
    begin += std::char_traits<char>::length(piece) + 1;
  }
  utPrintf("\n");
  return {};
}

SessionResult showState(Call&) {
  const vxErrorMode mode = vxSetErrorMode(vxERROR_MODE_RAISE);
  vxSetErrorMode(mode);
  return SessionState{
      .isInCallback = graphics::datatype::CallbackExecutor::getInstance()->isInCallback(),
      .vgStatus = svGetVGStatus(),
      .errorMode = mode,
      .isInterruptPending = utIsInterruptPending(),
      .wasInterruptHandled = utWasInterruptHandled()};
}

// --- callbacks -----------------------------------------------------------------------------------

SessionResult fireEvent(Call& call) {
  const SessionObject& object = objectArgument(call, 0);
  const vcos::COSClass& ownClass = object.ownClass();
  const vcos::COSNameID event = requireEvent(ownClass, call.arguments[1]);
  const vcos::ArrayOwner data =
      readValue(call, call.arguments.size() > 2 ? call.arguments[2] : "[]");
  ownClass.fireEvent(event, vcos::COSInterfacePtr(object.object()), data.get());
  return {};
}

SessionResult defineFunction(Call& call) {
  call.session.callbacks().define(call.arguments[0],
                                  readText(call, call.arguments[1], "the code of a function"));
  return {};
}

RunningCallback& requireCallback(const Call& call, std::string_view command) {
  if (!call.callback)
    throw RequestError(fmt::format("\"{}\" is for the code of a callback", command));
  return *call.callback;
}

SessionResult failCallback(Call& call) {
  RunningCallback& callback = requireCallback(call, "fail");
  const Arguments& arguments = call.arguments;
  const auto text = [&](std::size_t index, const char* what) {
    return arguments.size() > index ? readText(call, arguments[index], what) : "";
  };
  std::string identifier = text(1, "the identifier of an error");
  std::string message = text(2, "the text of an error");
  if (identifier.empty())
    vghost::clearLastError();
  else
    vghost::setLastError(std::move(identifier), message);
  callback.outcome.wasSaved = !arguments.empty() && !arguments[0].empty();
  callback.fail(std::move(message));
  return {};
}

SessionResult requestInterrupt(Call& call) {
  vghost::requestInterrupt();
  if (!call.callback) call.session.keepInterrupt();
  return {};
}

SessionResult quitDebugger(Call& call) {
  if (!call.callback) return {};
  vghost::setDbquit(true);
  call.callback->hasEnded = true;
  return {};
}

SessionResult waitInHost(Call& call) {
  if (call.arguments[0] == "start")
    vghost::startWait();
  else if (!vghost::finishWait())
    throw RequestError("no wait has begun; \"wait start\" begins one");
  return {};
}

// --- the session ---------------------------------------------------------------------------------

SessionResult printHelp(Call&) {
  for (const SessionCommand& command : sessionCommands())
    utPrintf("%-30s %s\n", command.usage.text().data(), command.help);
  return {};
}

SessionResult endSession(Call& call) {
  if (call.callback) throw RequestError("a callback cannot end the session");
  call.session.end();
  return {};
}

constexpr std::string_view kCreate = "new";

constexpr SessionCommand kCommands[] = {
    {kCreate, Usage("NAME = new CLASS [in PARENT]"), "make an object", createObject},
    {"set", Usage("set NAME PROPERTY VALUE"), "give a property a value", setProperty},
    {"get", Usage("get NAME [PROPERTY]"), "show a property, or all", getProperty, true},
    {"delete", Usage("delete NAME"), "destroy an object and those whose Parent it is",
     deleteObject},
    {"fire", Usage("fire NAME EVENT [VALUE]"), "fire an event, with data for its callback",
     fireEvent},
    {"define", Usage("define NAME CODE"), "let @NAME run commands, separated by commas",
     defineFunction},
    {"fail", Usage("fail [saved] [ID [TEXT]]"), "in a callback: end it as failed", failCallback},
    {"interrupt", Usage("interrupt"), "request the host's interrupt", requestInterrupt},
    {"dbquit", Usage("dbquit"),
     "in a callback: end it, and those around it, by the debugger's quit", quitDebugger},
    {"wait", Usage("wait start|finish"), "begin or end a wait of the host", waitInHost},
    {"handle", Usage("handle NAME"), "give an object a number and show it", numberOfObject, true},
    {"object", Usage("object NUMBER"), "show the object that a number stands for", objectOfNumber,
     true},
    {"destroyhandle", Usage("destroyhandle NUMBER"), "let a number stand for nothing",
     destroyHandle},
    {"number", Usage("number FIGURE N"), "give a figure a whole number of one's choice",
     numberFigure},
    {"track", Usage("track on|off"), "note new numbers; at the end let them stand for nothing",
     trackHandles},
    {"classes", Usage("classes"), "list the classes", listClasses},
    {"objects", Usage("objects"), "list the living objects", listObjects},
    {"print", Usage("print VALUE"), "print a value on the host's console", printValue},
    {"feature", Usage("feature NAME on|off"), "switch a feature of the host", switchFeature},
    {"state", Usage("state"), "show the state of the host", showState, true},
    {"help", Usage("help"), "list the commands", printHelp},
    {"quit", Usage("quit"), "end the session", endSession},
};

const SessionCommand* commandNamed(std::string_view name) {
  const auto* found = std::ranges::find(kCommands, name, &SessionCommand::name);
  return found == std::end(kCommands) ? nullptr : found;
}

/// Whether the line gives a name something: "a = ..." does, and "print = x" does not, although
/// "print = new ..." does.
bool isAssignment(std::string_view line) {
  const std::size_t end = line.find_first_of(" \t\r\v\f=");
  if (end == 0 || end == line.npos) return false;
  const std::string_view rest = withoutBlanks(line.substr(end));
  if (rest.empty() || rest.front() != '=') return false;
  const std::string_view value = withoutBlanks(rest.substr(1));
  return !commandNamed(line.substr(0, end)) ||
         value.substr(0, value.find_first_of(kBlanks)) == kCreate;
}

}  // namespace

std::span<const SessionCommand> sessionCommands() {
  return kCommands;
}

const SessionCommand* findCommand(std::string_view line) {
  return commandNamed(isAssignment(line) ? kCreate : line.substr(0, line.find_first_of(kBlanks)));
}

}  // namespace vgdt
