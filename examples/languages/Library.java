/*
 * A small lending library: books are lent for a number of days, late ones cost a fee.
 * Run it with:  java Library.java
 */
import java.time.LocalDate;
import java.time.temporal.ChronoUnit;
import java.util.*;
import java.util.function.Predicate;
import java.util.stream.Collectors;

/** What can be lent; {@code sealed} so that a switch over it is complete. */
sealed interface Item permits Book, Disc {
    String title();

    /** The days that an item may be kept. */
    default int days() {
        return switch (this) {
            case Book b when b.pages() > 500 -> 42;
            case Book b -> 28;
            case Disc d -> 7;
        };
    }
}

record Book(String title, String author, int pages) implements Item {
    Book {
        if (pages <= 0) throw new IllegalArgumentException("a book of " + pages + " pages: \"" + title + "\"");
    }
}

record Disc(String title, double minutes) implements Item {
}

enum State { FREE, LENT, LOST }

public class Library {

    private static final long FEE_PER_DAY = 25L; // cents
    private static final char MARK = '\u2605', TAB = '\t', QUOTE = '\'';

    private final Map<Item, State> shelf = new LinkedHashMap<>();
    private final Map<Item, LocalDate> due = new HashMap<>();

    void add(Item... items) {
        for (Item item : items) {
            shelf.putIfAbsent(item, State.FREE);
        }
    }

    /**
     * Lends an item.
     *
     * @param item what is taken home
     * @param on   the day of the loan
     * @return the day when it is due, or empty when somebody else has it
     */
    Optional<LocalDate> lend(Item item, LocalDate on) {
        if (shelf.getOrDefault(item, State.LOST) != State.FREE) {
            return Optional.empty();
        }
        shelf.put(item, State.LENT);
        due.put(item, on.plusDays(item.days()));
        return Optional.of(due.get(item));
    }

    /** The fee in cents; 0 when the item comes back in time. */
    long giveBack(Item item, LocalDate on) {
        LocalDate wanted = due.remove(item);
        shelf.replace(item, State.LENT, State.FREE);
        if (wanted == null) return 0;
        long late = ChronoUnit.DAYS.between(wanted, on);
        return Math.max(0L, late) * FEE_PER_DAY;
    }

    List<String> titles(Predicate<? super Item> wanted) {
        return shelf.keySet().stream()
                .filter(wanted)
                .map(Item::title)
                .sorted(Comparator.comparing(String::length).reversed())
                .collect(Collectors.toList());
    }

    @Override
    public String toString() {
        var text = new StringBuilder(64);
        shelf.forEach((item, state) -> text.append(state == State.FREE ? MARK : ' ')
                .append(TAB).append(item.title()).append(QUOTE).append('\n'));
        return text.toString();
    }

    public static void main(String[] args) throws Exception {
        Library library = new Library();
        Book sea = new Book("The Grey Sea", "A. Holm", 612);
        Disc songs = new Disc("Songs, \"live\"", 71.5);
        library.add(sea, songs, new Book("Knots", "P. Ray", 96));

        LocalDate day = LocalDate.of(2026, 2, 1);
        library.lend(sea, day).ifPresentOrElse(
                end -> System.out.printf("due on %s, after %d days%n", end, sea.days()),
                () -> System.out.println("not free"));
        assert library.lend(sea, day).isEmpty() : "lent twice";
        System.out.println("fee: " + library.giveBack(sea, day.plusDays(50)) + " cents");

        String help = """
                Commands:
                  "lend TITLE"   takes an item home
                  "back TITLE"   brings it back
                """;
        System.out.print(help);
        System.out.println(library.titles(item -> item instanceof Book || item.days() < 10));
        System.out.print(library /* by toString */);
    }
}
