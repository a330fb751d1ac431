/*
 * A timetable of trains: lines are "06:15 Harbour 4" with time, destination and platform.
 * Run it with:  kotlinc Timetable.kt -include-runtime -d timetable.jar && java -jar timetable.jar timetable.txt
 */
@file:Suppress("unused")

package trains

import java.io.File
import java.io.IOException
import kotlin.time.Duration
import kotlin.time.Duration.Companion.minutes

/** A time of day in minutes after midnight. */
@JvmInline
value class Clock(val minutes: Int) : Comparable<Clock> {
    init {
        require(minutes in 0..<24 * 60) { "no time of day: $minutes" }
    }

    override fun compareTo(other: Clock) = minutes.compareTo(other.minutes)

    operator fun minus(other: Clock): Duration = (minutes - other.minutes).minutes

    override fun toString() = "%02d:%02d".format(minutes / 60, minutes % 60)

    companion object {
        private val PATTERN = Regex("""(\d{1,2}):(\d\d)""")

        fun parse(text: String): Clock? {
            val (hours, minutes) = PATTERN.matchEntire(text)?.destructured ?: return null
            return Clock(hours.toInt() * 60 + minutes.toInt())
        }
    }
}

data class Departure(val time: Clock, val destination: String, var platform: Int = 1) {
    val isNight: Boolean get() = time < Clock(5 * 60)
}

sealed interface Line {
    data class Good(val departure: Departure) : Line
    data class Bad(val number: Int, val reason: String) : Line
    data object Empty : Line
}

enum class Order(val label: Char) { BY_TIME('t'), BY_PLACE('p') }

fun readLine(number: Int, text: String): Line {
    val words = text.trim().split(' ', '\t').filter(String::isNotEmpty)
    if (words.isEmpty() || words[0].startsWith('#')) return Line.Empty // a comment of the file
    val time = Clock.parse(words.first()) ?: return Line.Bad(number, "\"${words.first()}\" is no time")
    return when (words.size) {
        2 -> Line.Good(Departure(time, words[1]))
        3 -> try {
            Line.Good(Departure(time, words[1], words[2].toInt()))
        } catch (e: NumberFormatException) {
            Line.Bad(number, "platform: ${e.message}")
        }
        in 0..1 -> Line.Bad(number, "nothing behind the time")
        else -> Line.Bad(number, "${words.size} words")
    }
}

class Timetable(lines: Sequence<Line>) {
    private val all = lines.toList()
    private val departures by lazy { all.filterIsInstance<Line.Good>().map { it.departure } }

    val problems: List<Line.Bad> = all.filterIsInstance<Line.Bad>()

    fun sorted(order: Order): List<Departure> = when (order) {
        Order.BY_TIME -> departures.sortedBy { it.time }
        Order.BY_PLACE -> departures.sortedWith(compareBy({ it.destination }, { it.time }))
    }

    /** The longest wait between two trains to the same place. */
    fun longestWait(destination: String): Duration? = departures
        .filter { it.destination.equals(destination, ignoreCase = true) }
        .sortedBy(Departure::time)
        .zipWithNext { a, b -> b.time - a.time }
        .maxOrNull()
}

inline fun <reified T> Iterable<*>.firstOf(): T? = firstOrNull { it is T } as T?

fun main(args: Array<String>) {
    val file = File(args.getOrElse(0) { "timetable.txt" })
    val table = try {
        Timetable(file.readLines().asSequence().mapIndexed { i, text -> readLine(i + 1, text) })
    } catch (e: IOException) {
        System.err.println("timetable: ${e.message ?: "cannot be read"}")
        return
    }
    val order = Order.entries.find { args.getOrNull(1)?.firstOrNull() == it.label } ?: Order.BY_TIME
    for ((time, destination, platform) in table.sorted(order)) {
        println("$time\t${destination.padEnd(20, '.')} platform $platform")
    }
    loop@ for (problem in table.problems) {
        if (problem.number > 1_000) break@loop
        System.err.println("${file.name}:${problem.number}: ${problem.reason}")
    }
    table.longestWait("Harbour")?.let { println("longest wait to the harbour: ${it.inWholeMinutes} minutes") }
}
