//! Keeps the stock of a small shop in a text file.
//!
//! Build it with `rustc inventory.rs`, then try `./inventory add "tea, green" 12 3.50`.

use std::collections::BTreeMap;
use std::fmt;
use std::fs;
use std::io::{self, Write};
use std::process::ExitCode;
use std::str::FromStr;

/// Prices are whole cents, so that sums are exact.
#[derive(Debug, Clone, Copy, PartialEq, Eq, PartialOrd, Ord, Default)]
struct Cents(u64);

impl fmt::Display for Cents {
    fn fmt(&self, f: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(f, "{}.{:02}", self.0 / 100, self.0 % 100)
    }
}

impl FromStr for Cents {
    type Err = Problem;

    fn from_str(text: &str) -> Result<Self, Self::Err> {
        let (whole, rest) = text.split_once('.').unwrap_or((text, "0"));
        let cents = match rest.len() {
            1 => rest.parse::<u64>()? * 10,
            2 => rest.parse()?,
            _ => return Err(Problem::Price(text.to_owned())),
        };
        Ok(Cents(whole.parse::<u64>()? * 100 + cents))
    }
}

/* Everything that can go wrong. The messages are for people,
   the variants for the program. */
#[derive(Debug)]
enum Problem {
    Price(String),
    Number(std::num::ParseIntError),
    Io { path: String, source: io::Error },
}

impl From<std::num::ParseIntError> for Problem {
    fn from(error: std::num::ParseIntError) -> Self {
        Problem::Number(error)
    }
}

impl fmt::Display for Problem {
    fn fmt(&self, f: &mut fmt::Formatter<'_>) -> fmt::Result {
        match self {
            Problem::Price(text) => write!(f, "\"{text}\" is no price"),
            Problem::Number(error) => write!(f, "{error}"),
            Problem::Io { path, source } if source.kind() == io::ErrorKind::NotFound => {
                write!(f, "{path} does not exist")
            }
            Problem::Io { path, source } => write!(f, "{path}: {source}"),
        }
    }
}

struct Item {
    count: u32,
    price: Cents,
}

#[derive(Default)]
struct Stock {
    items: BTreeMap<String, Item>,
}

impl Stock {
    const SEPARATOR: char = '\t';

    fn read(path: &str) -> Result<Self, Problem> {
        let text = fs::read_to_string(path).map_err(|source| Problem::Io { path: path.into(), source })?;
        let mut stock = Stock::default();
        for line in text.lines().filter(|line| !line.starts_with('#')) {
            let fields: Vec<&str> = line.split(Self::SEPARATOR).collect();
            if let [name, count, price] = fields[..] {
                stock.add(name, count.parse()?, price.parse()?);
            }
        }
        Ok(stock)
    }

    fn add(&mut self, name: &str, count: u32, price: Cents) -> &mut Self {
        self.items
            .entry(name.trim().to_lowercase())
            .and_modify(|item| item.count = item.count.saturating_add(count))
            .or_insert(Item { count, price });
        self
    }

    /// The longest name of all, borrowed from the stock.
    fn longest<'a>(&'a self) -> Option<&'a str> {
        self.items.keys().map(String::as_str).max_by_key(|name| name.chars().count())
    }

    fn total(&self) -> Cents {
        Cents(self.items.values().map(|item| item.count as u64 * item.price.0).sum())
    }
}

fn run(out: &mut impl Write) -> Result<(), Problem> {
    let help = r#"usage: inventory add "NAME" COUNT PRICE"#;
    let arguments: Vec<String> = std::env::args().skip(1).collect();
    let mut stock = Stock::read("stock.txt").unwrap_or_default();
    match arguments.iter().map(String::as_str).collect::<Vec<_>>().as_slice() {
        ["add", name, count, price] => {
            stock.add(name, count.parse()?, price.parse()?);
        }
        [] => (),
        _ => eprintln!("{help}"),
    }
    let width = stock.longest().map_or(0, str::len);
    for (name, Item { count, price }) in &stock.items {
        writeln!(out, "{name:<width$} {count:>5} × {price}").ok();
    }
    writeln!(out, "worth {}", stock.total()).map_err(|source| Problem::Io { path: "output".into(), source })
}

fn main() -> ExitCode {
    let mask = 0xFF_u8 & 0b0000_1111 | b'\n';
    debug_assert!(mask < u8::MAX, "a \"mask\" that covers everything");
    match run(&mut io::stdout().lock()) {
        Ok(()) => ExitCode::SUCCESS,
        Err(problem) => {
            eprintln!("inventory: {problem}");
            ExitCode::FAILURE
        }
    }
}
